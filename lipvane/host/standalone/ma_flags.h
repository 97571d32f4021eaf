#pragma once

#include <initializer_list>
#include <string_view>
#include <utility>
#include <vector>

#include "lipvane/host/standalone/ma_tokens.h"

namespace lipvane::standalone {

/// A command's flags and the rest of its words, in whatever order they stood.
struct Words {
  std::vector<std::pair<std::string_view, Token>> flags;
  std::vector<std::string_view> names;

  bool Has(std::initializer_list<std::string_view> spellings) const {
    return Find(spellings) != nullptr;
  }
  /// The value of a flag by its spellings, or null.
  const Token* Find(std::initializer_list<std::string_view> spellings) const;
};

/// Takes a statement apart. `valueFlags` are those that take a value; all others take none.
Words ReadWords(TokenReader& reader, std::initializer_list<std::string_view> valueFlags);

}  // namespace lipvane::standalone
