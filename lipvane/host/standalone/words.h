#pragma once

#include <string>
#include <utility>
#include <vector>

#include "lipvane/host/arguments.h"
#include "lipvane/host/syntax.h"

namespace lipvane::standalone {

/// The words of a command line after the command's name.
class WordArguments : public host::Arguments {
 public:
  explicit WordArguments(std::vector<std::string> words) : words_(std::move(words)) {}

  unsigned Length() const override;
  host::Status AsString(unsigned i, std::string& value) const override;

 private:
  std::vector<std::string> words_;
};

/// Words as a syntax reads them. Forgiving, as the host is: words that the syntax does not know are
/// passed over, and a flag whose value is missing only fails when the value is asked for.
class WordArgDatabase : public host::ArgDatabase {
 public:
  WordArgDatabase(const host::Syntax& syntax, const host::Arguments& arguments);

  host::Status GetFlagArgument(const std::string& flag, unsigned index,
                               std::string& value) const override;
  host::Status GetFlagArgument(const std::string& flag, unsigned index, int& value) const override;
  bool IsFlagSet(const std::string& flag) const override;
  unsigned NumberOfFlagUses(const std::string& flag) const override;
  /// The values of every use of the flag, in their order.
  std::vector<std::string> ValuesOf(const std::string& flag) const;

 private:
  struct Use {
    const host::Flag* flag;  // in syntax_
    std::vector<std::string> values;
  };

  /// The first use of the flag, or null.
  const Use* FirstUse(const std::string& flag) const;

  host::Syntax syntax_;
  std::vector<Use> uses_;
};

/// What a command accepts.
struct CommandSyntax {
  host::Syntax flags;
  std::string objects;    ///< what its other words are, "" when it takes none
  bool isStrict = false;  ///< does it refuse what can only be passed over?
};

/// What a look at the words of a command line finds.
struct WordCheck {
  std::string error;                 ///< the first that is refused, and what is accepted; or ""
  std::vector<std::string> notes;    ///< what is passed over or read otherwise than it stands
  std::vector<std::string> objects;  ///< the words that belong to no flag, if the command takes any
};

/// A word that begins with a dash is a flag, unless it follows a flag that takes a value or is a
/// number.
WordCheck CheckWords(const std::string& command, const CommandSyntax& syntax,
                     const std::vector<std::string>& words);

/// The number that is the whole word, as the host reads an integer: what is behind the point is
/// dropped. False, with `value` left alone, when it is no number or beyond the range of int.
bool ReadInteger(const std::string& word, int& value);

}  // namespace lipvane::standalone
