#include "lipvane/host/standalone/words.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <set>

#include "lipvane/text/numbers.h"
#include "lipvane/text/printable.h"
#include "lipvane/text/similar.h"

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
  return list.empty() ? "no arguments" : list;
}

bool IsBoolean(const std::string& word) {
  static constexpr const char* kWords[] = {"on", "off", "yes", "no", "true", "false", "1", "0"};
  return std::find(std::begin(kWords), std::end(kWords), word) != std::end(kWords);
}

/// How a value is read that is not of its flag's type, or nothing when it is.
std::string Misread(host::ArgType type, const std::string& word) {
  static const std::string kPassedOver = "it is passed over";
  int integer = 0;
  switch (type) {
    case host::ArgType::kBoolean:
      return IsBoolean(word) ? "" : kPassedOver;
    case host::ArgType::kLong:
      if (!ReadInteger(word, integer)) return kPassedOver;
      return text::WholeReal(word) == integer ? "" : "it is read as " + std::to_string(integer);
    case host::ArgType::kDouble:
      return text::WholeReal(word) ? "" : kPassedOver;
    case host::ArgType::kNoArg:
    case host::ArgType::kString:
      break;
  }
  return {};
}

/// Reads the words of one command, one after the other.
class Checker {
 public:
  Checker(const std::string& command, const CommandSyntax& syntax,
          const std::vector<std::string>& words)
      : command_(command), syntax_(syntax), words_(words) {}

  WordCheck Run() {
    while (at_ < words_.size() && result_.error.empty())
      TakeWord(words_[at_++]);
    return std::move(result_);
  }

 private:
  void Refuse(const std::string& problem) {
    const bool isQuestion = problem.back() == '?';
    result_.error = command_ + ": " + problem + (isQuestion ? " It accepts " : "; it accepts ") +
                    Accepted(syntax_);
  }

  std::vector<std::string> AllFlags() const {
    std::vector<std::string> names;
    for (const host::Flag& flag : syntax_.flags.Flags())
      names.insert(names.end(), {flag.longName, flag.shortName});
    return names;
  }

  /// Of what a strict command refuses, and another passes over or reads in its own way.
  void Complain(const std::string& problem, const std::string& difference) {
    if (syntax_.isStrict) return Refuse(problem);
    result_.notes.push_back(command_ + ": " + problem + ": " + difference);
  }

  void TakeWord(const std::string& word) {
    if (const host::Flag* flag = syntax_.flags.Find(word)) return TakeFlag(*flag);
    const bool isNumber = text::WholeReal(word).has_value();
    if (!word.empty() && word[0] == '-' && !isNumber) {
      return Refuse("unknown flag " + text::QuotedLine(word) + text::DidYouMean(word, AllFlags()));
    }
    if (!TakesObjects())
      return Complain("unexpected word " + text::QuotedLine(word), "it is passed over");
    result_.objects.push_back(word);
  }

  void TakeFlag(const host::Flag& flag) {
    const std::string name = "flag " + FlagNames(flag);
    const bool isLast = at_ == words_.size();
    const std::string value = TakesValue(flag) && !isLast ? words_[at_++] : "";
    if (!used_.insert(&flag).second && !flag.multiUse) {
      if (syntax_.isStrict || TakesValue(flag))
        Complain(name + " is given more than once", text::QuotedLine(value) + " is passed over");
    } else if (TakesValue(flag) && isLast) {
      Complain(name + " has no value", "it is passed over");
    } else if (const std::string read = Misread(flag.argument, value); !read.empty()) {
      Complain("the value " + text::QuotedLine(value) + " of " + name + " is no" +
                   ValueName(flag.argument),
               read);
    }
  }

  bool TakesObjects() const { return !syntax_.objects.empty(); }

  const std::string& command_;
  const CommandSyntax& syntax_;
  const std::vector<std::string>& words_;
  std::size_t at_ = 0;
  std::set<const host::Flag*> used_;
  WordCheck result_;
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
  return ReadInteger(word, value) ? host::StatusCode::kSuccess : host::StatusCode::kFailure;
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

WordCheck CheckWords(const std::string& command, const CommandSyntax& syntax,
                     const std::vector<std::string>& words) {
  return Checker(command, syntax, words).Run();
}

bool ReadInteger(const std::string& word, int& value) {
  const auto real = text::FiniteReal(word);
  if (!real) return false;
  const double whole = std::trunc(*real);
  if (whole < std::numeric_limits<int>::min() || whole > std::numeric_limits<int>::max()) {
    return false;
  }
  value = static_cast<int>(whole);
  return true;
}

}  // namespace lipvane::standalone
