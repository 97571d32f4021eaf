#include "lipvane/host/standalone/ma_set_attr.h"

#include <algorithm>
#include <cstddef>

#include "lipvane/text/numbers.h"

namespace lipvane::standalone {
namespace {

bool IsType(std::string_view flag) {
  return flag == "-type" || flag == "-typ";
}

/// Takes a flag's value off the reader, which stands behind the flag; kEnd when it has none.
Token ReadFlagValue(std::string_view flag, TokenReader& reader) {
  if (flag == "-av" || flag == "-alteredValue" || flag == "-c" || flag == "-clamp") return {};
  if (IsType(flag)) return reader.Next();
  // The others take a number or a boolean; a script may leave it out before the attribute.
  const Token value = reader.Peek();
  if (value.kind != Token::Kind::kWord || value.IsFlag()) return {};
  return reader.Next();
}

void ReadFlag(std::string_view flag, TokenReader& reader, std::optional<bool>& lock,
              std::string_view& type) {
  const Token value = ReadFlagValue(flag, reader);
  if (IsType(flag)) {
    type = value.text;
  } else if (value.kind != Token::Kind::kEnd && (flag == "-l" || flag == "-lock")) {
    lock = BooleanOf(value.text);
  }
}

}  // namespace

PlugName SplitPlug(std::string_view plug) {
  const std::size_t dot = std::min(plug.find('.'), plug.size());
  return {plug.substr(0, dot), plug.substr(std::min(dot + 1, plug.size()))};
}

SetAttr ReadSetAttr(TokenReader& reader) {
  SetAttr result;
  reader.Next();  // setAttr itself
  for (;;) {
    const Token token = reader.Next();
    if (!token.IsFlag()) {
      result.plug = token.text;  // empty at the end
      return result;
    }
    ReadFlag(token.text, reader, result.lock, result.type);
  }
}

SetAttrValues ReadValues(TokenReader& reader) {
  SetAttrValues result;
  for (;;) {
    const Token token = reader.Next();
    if (token.kind == Token::Kind::kEnd) return result;
    if (token.IsFlag()) {
      ReadFlag(token.text, reader, result.lock, result.type);
    } else {
      result.words.push_back(token.text);
    }
  }
}

std::string FlagsWithoutSize(std::string_view statement, const CodePage& page) {
  std::string result;
  TokenReader reader(statement, page);
  for (Token token = reader.Next(); token.kind != Token::Kind::kEnd; token = reader.Next()) {
    if (!token.IsFlag()) continue;
    const Token value = ReadFlagValue(token.text, reader);
    if (token.text == "-s" || token.text == "-size") continue;
    if (!result.empty()) result += ' ';
    result += token.text;
    if (value.kind == Token::Kind::kEnd) continue;
    result += ' ';
    result +=
        value.kind == Token::Kind::kString ? Quoted(value.text, page) : std::string(value.text);
  }
  return result;
}

std::optional<bool> BooleanOf(std::string_view word) {
  if (word == "yes" || word == "on" || word == "true") return true;
  if (word == "no" || word == "off" || word == "false") return false;
  const auto number = text::WholeReal(word);
  if (!number) return std::nullopt;
  return *number != 0.0;
}

}  // namespace lipvane::standalone
