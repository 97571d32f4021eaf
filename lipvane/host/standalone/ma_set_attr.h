#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "lipvane/host/standalone/ma_tokens.h"

/// The parts of a setAttr statement, whose flags stand before or behind the attribute.
namespace lipvane::standalone {

struct SetAttr {
  std::string_view plug;  ///< empty when there is none
  std::optional<bool> lock;
  std::string_view type;
};

/// A "node.attribute" taken apart; the node is empty for ".attribute".
struct PlugName {
  std::string_view node;
  std::string_view attribute;
};
PlugName SplitPlug(std::string_view plug);

/// Reads setAttr and what follows as far as the attribute. What follows that is left, so that
/// the millions of numbers of a mesh need not be looked at.
SetAttr ReadSetAttr(TokenReader& reader);

/// What stands behind the attribute.
struct SetAttrValues {
  std::vector<std::string_view> words;
  std::optional<bool> lock;
  std::string_view type;
};
SetAttrValues ReadValues(TokenReader& reader);

/// The flags of a setAttr and their values as they are to be written, but for the size.
std::string FlagsWithoutSize(std::string_view statement, const CodePage& page);

/// yes, no, on, off, true, false or a number.
std::optional<bool> BooleanOf(std::string_view word);

}  // namespace lipvane::standalone
