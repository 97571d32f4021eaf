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

/// What a command accepts: its flags, and what its other words are, "" when it takes none.
struct CommandSyntax {
  host::Syntax flags;
  std::string objects;
};

/// Says what is wrong with the words, and what would be accepted; empty when nothing is. `objects`
/// gets the words that belong to no flag. A word that begins with a dash is a flag, unless it
/// follows a flag that takes a value or is a number that the command may take.
std::string CheckWords(const std::string& command, const CommandSyntax& syntax,
                       const std::vector<std::string>& words, std::vector<std::string>& objects);

/// A word that is an integer and nothing else, within the range of int; false otherwise.
bool ParseInteger(const std::string& word, int& value);

}  // namespace lipvane::standalone
