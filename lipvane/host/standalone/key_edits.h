#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "lipvane/host/standalone/scene_data.h"

namespace lipvane::standalone {

/// A place in the file and what stands there instead.
struct Edit {
  Span span;
  std::string text;
};

/// What is to change in a file, and what is to be added behind its statements.
struct TextChanges {
  std::vector<Edit> edits;
  std::string added;
};

/// How a file writes what does not change its meaning.
struct Style {
  explicit Style(const SceneData& data);
  std::string Quote(std::string_view words) const;

  std::string_view lineEnd;
  CodePage page;
  bool doublesBackslashes;
};

/// What brings the file's key statements up to date.
struct KeyEdits {
  std::vector<Edit> edits;
  std::vector<Span> removed;  ///< statements that others stand for now
};

/// Adds what a changed curve of the file needs, and no more: while no key was added only the values
/// that changed, else the statements of those arrays whose content changed or moved.
void AddKeyEdits(std::string_view text, const CurveRecord& record, const Style& style,
                 KeyEdits& edits);

/// The key statements of a curve that the file does not have, separated by a line end and a tab.
std::string NewKeyStatements(const CurveRecord& record, const Style& style);

}  // namespace lipvane::standalone
