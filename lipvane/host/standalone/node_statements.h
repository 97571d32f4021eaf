#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "lipvane/host/standalone/scene_data.h"

namespace lipvane::standalone {

/// A text that a file sets an attribute to.
struct TextAttribute {
  std::string node;
  std::string text;
  Span span;  ///< of the value in the file, its quotes included
};

/// What the file sets a text attribute to, by its short and long name, on nodes of a type that is
/// not otherwise understood; in the order of the file.
std::vector<TextAttribute> FindTexts(const SceneData& data, std::string_view type,
                                     std::string_view shortName, std::string_view longName);

}  // namespace lipvane::standalone
