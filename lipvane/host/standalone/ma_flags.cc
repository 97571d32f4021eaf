#include "lipvane/host/standalone/ma_flags.h"

#include <algorithm>

namespace lipvane::standalone {
namespace {

bool Contains(std::initializer_list<std::string_view> list, std::string_view text) {
  return std::find(list.begin(), list.end(), text) != list.end();
}

}  // namespace

const Token* Words::Find(std::initializer_list<std::string_view> spellings) const {
  for (const auto& [flag, value] : flags) {
    if (Contains(spellings, flag)) return &value;
  }
  return nullptr;
}

Words ReadWords(TokenReader& reader, std::initializer_list<std::string_view> valueFlags) {
  Words words;
  reader.Next();  // the command itself
  for (Token token = reader.Next(); token.kind != Token::Kind::kEnd; token = reader.Next()) {
    if (!token.IsFlag()) {
      words.names.push_back(token.text);
    } else {
      words.flags.emplace_back(token.text,
                               Contains(valueFlags, token.text) ? reader.Next() : Token{});
    }
  }
  return words;
}

}  // namespace lipvane::standalone
