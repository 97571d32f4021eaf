#include "lipvane/host/standalone/node_statements.h"

#include <optional>
#include <set>
#include <utility>

#include "lipvane/host/standalone/ma_flags.h"
#include "lipvane/host/standalone/ma_set_attr.h"
#include "lipvane/host/standalone/ma_statements.h"
#include "lipvane/host/standalone/ma_tokens.h"

namespace lipvane::standalone {
namespace {

std::string_view WithoutRoot(std::string_view name) {
  if (!name.empty() && name[0] == ':') name.remove_prefix(1);
  return name;
}

/// The value, which is a text, behind the attribute; its place is in the statement.
std::optional<std::pair<std::string, Span>> ReadText(TokenReader& reader,
                                                     std::string_view statement) {
  std::optional<std::pair<std::string, Span>> found;
  for (;;) {
    const std::size_t begin = SkipBlank(statement, reader.Position());
    const Token token = reader.Next();
    if (token.kind == Token::Kind::kEnd) return found;
    if (token.text == "-type" || token.text == "-typ") {
      reader.Next();
    } else if (token.kind == Token::Kind::kString) {
      found.emplace(std::string(token.text), Span{begin, reader.Position()});
    }
  }
}

}  // namespace

std::vector<TextAttribute> FindTexts(const SceneData& data, std::string_view type,
                                     std::string_view shortName, std::string_view longName) {
  std::vector<TextAttribute> result;
  std::set<std::string, std::less<>> nodes;  // of the type
  std::string current;
  StatementScanner scanner(data.text);
  Statement statement;
  while (scanner.Next(statement)) {
    TokenReader reader(statement.text, data.page);
    const std::string_view command = reader.Peek().text;
    if (command == "createNode") {
      const Words words = ReadWords(reader, {"-n", "-name", "-p", "-parent"});
      const Token* const name = words.Find({"-n", "-name"});
      current = name != nullptr ? WithoutRoot(name->text) : std::string_view();
      if (!words.names.empty() && words.names.front() == type) nodes.insert(current);
    } else if (command == "select") {
      const Words words = ReadWords(reader, {});
      current = words.names.empty() ? std::string_view() : WithoutRoot(words.names.front());
    } else if (command == "setAttr" && !nodes.empty()) {
      const PlugName plug = SplitPlug(ReadSetAttr(reader).plug);
      const std::string_view node = plug.node.empty() ? current : WithoutRoot(plug.node);
      if (plug.attribute != shortName && plug.attribute != longName) continue;
      if (nodes.find(node) == nodes.end()) continue;
      if (auto value = ReadText(reader, statement.text)) {
        const Span& span = value->second;
        result.push_back({std::string(node),
                          std::move(value->first),
                          {statement.begin + span.begin, statement.begin + span.end}});
      }
    }
  }
  return result;
}

}  // namespace lipvane::standalone
