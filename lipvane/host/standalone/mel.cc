#include "lipvane/host/standalone/mel.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>

#include "lipvane/text/numbers.h"

namespace lipvane::standalone {
namespace {

bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v';
}

class Splitter {
 public:
  Splitter(const MelSource& source, const std::function<bool(const std::string&)>& isCommand)
      : source_(source), text_(source.text), isCommand_(isCommand) {}

  std::vector<MelCommand> Run() {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (text_.substr(0, kByteOrderMark.size()) == kByteOrderMark) at_ = kByteOrderMark.size();
    while (at_ < text_.size()) {
      const char c = text_[at_];
      if (IsBlank(c)) {
        if (c == '\n') StartLine();
        ++at_;
      } else if (c == ';') {
        EndCommand();
        ++at_;
      } else if (!SkipComment()) {
        TakeWord();
      }
    }
    EndCommand();
    return std::move(commands_);
  }

 private:
  bool LooksAt(std::string_view what) const { return text_.substr(at_, what.size()) == what; }

  void StartLine() {
    ++line_;
    lineIsNew_ = true;
  }

  bool SkipComment() {
    if (LooksAt("//")) {
      at_ = std::min(text_.find('\n', at_), text_.size());
      return true;
    }
    if (!LooksAt("/*")) return false;
    const std::size_t end = text_.find("*/", at_ + 2);
    if (end == std::string_view::npos) Fail("a comment is not closed");
    for (; at_ < end; ++at_) {
      if (text_[at_] == '\n') StartLine();
    }
    at_ = end + 2;
    return true;
  }

  void TakeWord() {
    const std::size_t start = at_;
    const bool quoted = text_[at_] == '"';
    std::string word = quoted ? TakeString() : TakeBareWord();
    if (!quoted && lineIsNew_ && isCommand_(word)) EndCommand();
    lineIsNew_ = false;
    if (words_.empty()) {
      commandStart_ = start;
      commandLine_ = line_;
    }
    words_.push_back(std::move(word));
    commandEnd_ = at_;
  }

  std::string TakeString() {
    std::string word;
    for (++at_; at_ < text_.size(); ++at_) {
      const char c = text_[at_];
      if (source_.page.Width(text_, at_) == 2) {  // its second byte is neither quote nor escape
        word += text_.substr(at_, 2);
        at_ += source_.page.QuotedWidth(text_, at_) - 1;
        continue;
      }
      if (c == '"') {
        ++at_;
        return word;
      }
      const bool isEscape = c == '\\' && at_ + 1 < text_.size();
      if (isEscape) ++at_;
      if (text_[at_] == '\n' || text_[at_] == '\r') break;
      word += isEscape ? Unescaped(text_[at_]) : c;
    }
    Fail("a string is not closed on its line");
  }

  static char Unescaped(char c) {
    switch (c) {
      case 'n':
        return '\n';
      case 't':
        return '\t';
      case 'r':
        return '\r';
      default:
        return c;
    }
  }

  std::string TakeBareWord() {
    const std::size_t start = at_;
    while (at_ < text_.size() && !IsBlank(text_[at_]) && text_[at_] != ';' && text_[at_] != '"' &&
           !LooksAt("//") && !LooksAt("/*")) {
      if (std::string_view("$`(){}").find(text_[at_]) != std::string_view::npos) {
        FailAtUnsupported(text_.substr(at_, 1));
      }
      ++at_;
    }
    std::string word(text_.substr(start, at_ - start));
    // A number may hold a plus: its sign, or its exponent's.
    if (word.find('+') != std::string::npos && !text::WholeReal(word)) FailAtUnsupported("+");
    return word;
  }

  void EndCommand() {
    if (words_.empty()) return;
    commands_.push_back(
        {std::string(text_.substr(commandStart_, commandEnd_ - commandStart_)), std::move(words_),
         source_.hasLineNumbers ? source_.name + ":" + std::to_string(commandLine_) : source_.name,
         source_.hasLineNumbers});
    words_.clear();
  }

  [[noreturn]] void FailAtUnsupported(std::string_view what) {
    Fail("\"" + std::string(what) +
         "\" is not supported outside a string: only plain command lines are, without variables, "
         "expressions and blocks");
  }

  [[noreturn]] void Fail(const std::string& reason) {
    const std::string place =
        source_.hasLineNumbers ? source_.name + ":" + std::to_string(line_) : source_.name;
    const std::size_t start = words_.empty() ? at_ : commandStart_;
    const std::size_t end = std::min(text_.find_first_of("\r\n", at_), text_.size());
    throw MelError(place + ": " + reason, std::string(text_.substr(start, end - start)));
  }

  const MelSource& source_;
  std::string_view text_;
  const std::function<bool(const std::string&)>& isCommand_;
  std::size_t at_ = 0;
  std::size_t line_ = 1;
  bool lineIsNew_ = true;
  std::vector<std::string> words_;  // of the command at hand
  std::size_t commandStart_ = 0;
  std::size_t commandEnd_ = 0;
  std::size_t commandLine_ = 1;
  std::vector<MelCommand> commands_;
};

}  // namespace

std::vector<MelCommand> SplitMel(const MelSource& source,
                                 const std::function<bool(const std::string&)>& isCommand) {
  return Splitter(source, isCommand).Run();
}

}  // namespace lipvane::standalone
