#include "lipvane/host/standalone/words.h"

#include <algorithm>
#include <charconv>
#include <cstddef>

#include "lipvane/text/numbers.h"

namespace lipvane::standalone {
namespace {

bool TakesValue(const host::Flag& flag) {
  return flag.argument != host::ArgType::kNoArg;
}

const char* ValueName(host::ArgType type) {
  switch (type) {
    case host::ArgType::kNoArg:
      break;
    case host::ArgType::kBoolean:
      return " BOOLEAN";
    case host::ArgType::kLong:
      return " INTEGER";
    case host::ArgType::kDouble:
      return " NUMBER";
    case host::ArgType::kString:
      return " STRING";
  }
  return "";
}

std::string FlagNames(const host::Flag& flag) {
  if (flag.shortName == flag.longName) return flag.longName;
  return flag.shortName + "/" + flag.longName;
}

std::string Accepted(const CommandSyntax& syntax) {
  std::string list;
  for (const host::Flag& flag : syntax.flags.Flags()) {
    if (!list.empty()) list += ", ";
    list += FlagNames(flag) + ValueName(flag.argument);
    if (flag.multiUse) list += " (any number of times)";
  }
  if (!syntax.objects.empty()) list += (list.empty() ? "" : ", ") + syntax.objects;
  return "it accepts " + (list.empty() ? "no arguments" : list);
}

bool IsBoolean(const std::string& word) {
  static constexpr const char* kWords[] = {"on", "off", "yes", "no", "true", "false", "1", "0"};
  return std::find(std::begin(kWords), std::end(kWords), word) != std::end(kWords);
}

bool Suits(host::ArgType type, const std::string& word) {
  int integer = 0;
  switch (type) {
    case host::ArgType::kBoolean:
      return IsBoolean(word);
    case host::ArgType::kLong:
      return ParseInteger(word, integer);
    case host::ArgType::kDouble:
      return text::WholeReal(word).has_value();
    case host::ArgType::kNoArg:
    case host::ArgType::kString:
      break;
  }
  return true;
}

/// Reads the words of one command, one after the other.
class Checker {
 public:
  Checker(const CommandSyntax& syntax, const std::vector<std::string>& words,
          std::vector<std::string>& objects)
      : syntax_(syntax), words_(words), objects_(objects) {}

  /// What is wrong with the first bad word, or nothing.
  std::string Run() {
    std::string problem;
    while (at_ < words_.size() && problem.empty())
      problem = TakeWord();
    return problem;
  }

 private:
  std::string TakeWord() {
    const std::string& word = words_[at_++];
    if (const host::Flag* flag = syntax_.flags.Find(word)) return TakeFlag(*flag);
    const bool dashed = !word.empty() && word[0] == '-';
    if (dashed && (syntax_.objects.empty() || !text::WholeReal(word))) {
      return "unknown flag \"" + word + "\"";
    }
    if (syntax_.objects.empty()) return "unexpected word \"" + word + "\"";
    objects_.push_back(word);
    return {};
  }

  std::string TakeFlag(const host::Flag& flag) {
    if (!flag.multiUse && std::find(used_.begin(), used_.end(), &flag) != used_.end()) {
      return "flag " + FlagNames(flag) + " is given more than once";
    }
    used_.push_back(&flag);
    if (!TakesValue(flag)) return {};
    if (at_ == words_.size()) return "flag " + FlagNames(flag) + " has no value";
    const std::string& value = words_[at_++];
    if (Suits(flag.argument, value)) return {};
    return "the value \"" + value + "\" of flag " + FlagNames(flag) + " is no" +
           ValueName(flag.argument);
  }

  const CommandSyntax& syntax_;
  const std::vector<std::string>& words_;
  std::vector<std::string>& objects_;
  std::vector<const host::Flag*> used_;
  std::size_t at_ = 0;
};

}  // namespace

unsigned WordArguments::Length() const {
  return static_cast<unsigned>(words_.size());
}

host::Status WordArguments::AsString(unsigned i, std::string& value) const {
  if (i >= words_.size()) return host::StatusCode::kInvalidParameter;
  value = words_[i];
  return {};
}

WordArgDatabase::WordArgDatabase(const host::Syntax& syntax, const host::Arguments& arguments)
    : syntax_(syntax) {
  std::string word;
  for (unsigned i = 0; i < arguments.Length(); ++i) {
    if (!arguments.AsString(i, word).ok()) continue;
    const host::Flag* flag = syntax_.Find(word);
    if (flag == nullptr) continue;
    Use use{flag, {}};
    if (TakesValue(*flag) && arguments.AsString(i + 1, word).ok()) {
      use.values.push_back(word);
      ++i;
    }
    uses_.push_back(std::move(use));
  }
}

const WordArgDatabase::Use* WordArgDatabase::FirstUse(const std::string& flag) const {
  const host::Flag* wanted = syntax_.Find(flag);
  const auto use =
      std::find_if(uses_.begin(), uses_.end(), [&](const Use& u) { return u.flag == wanted; });
  return use == uses_.end() ? nullptr : &*use;
}

host::Status WordArgDatabase::GetFlagArgument(const std::string& flag, unsigned index,
                                              std::string& value) const {
  const Use* use = FirstUse(flag);
  if (use == nullptr || index >= use->values.size()) return host::StatusCode::kFailure;
  value = use->values[index];
  return {};
}

host::Status WordArgDatabase::GetFlagArgument(const std::string& flag, unsigned index,
                                              int& value) const {
  std::string word;
  const host::Status status = GetFlagArgument(flag, index, word);
  if (!status.ok()) return status;
  return ParseInteger(word, value) ? host::StatusCode::kSuccess : host::StatusCode::kFailure;
}

bool WordArgDatabase::IsFlagSet(const std::string& flag) const {
  return FirstUse(flag) != nullptr;
}

unsigned WordArgDatabase::NumberOfFlagUses(const std::string& flag) const {
  const host::Flag* wanted = syntax_.Find(flag);
  return static_cast<unsigned>(std::count_if(uses_.begin(), uses_.end(),
                                             [&](const Use& use) { return use.flag == wanted; }));
}

std::vector<std::string> WordArgDatabase::ValuesOf(const std::string& flag) const {
  const host::Flag* wanted = syntax_.Find(flag);
  std::vector<std::string> values;
  for (const Use& use : uses_) {
    if (use.flag == wanted) values.insert(values.end(), use.values.begin(), use.values.end());
  }
  return values;
}

std::string CheckWords(const std::string& command, const CommandSyntax& syntax,
                       const std::vector<std::string>& words, std::vector<std::string>& objects) {
  const std::string problem = Checker(syntax, words, objects).Run();
  return problem.empty() ? problem : command + ": " + problem + "; " + Accepted(syntax);
}

bool ParseInteger(const std::string& word, int& value) {
  const char* begin = word.data();
  const char* end = begin + word.size();
  if (word.size() > 1 && word[0] == '+' && word[1] != '-') ++begin;
  int parsed = 0;
  const auto [stop, error] = std::from_chars(begin, end, parsed);
  if (error != std::errc() || stop != end) return false;
  value = parsed;
  return true;
}

}  // namespace lipvane::standalone
