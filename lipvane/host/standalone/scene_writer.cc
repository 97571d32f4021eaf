#include "lipvane/host/standalone/scene_writer.h"

#include <algorithm>
#include <cstddef>
#include <ostream>
#include <string_view>
#include <tuple>
#include <utility>

#include "lipvane/host/standalone/key_edits.h"
#include "lipvane/host/standalone/ma_tokens.h"

namespace lipvane::standalone {
namespace {

bool IsBlank(char c) {
  return c == ' ' || c == '\t';
}
bool IsLineEnd(char c) {
  return c == '\n' || c == '\r';
}

/// The statements with their line when they have that for themselves, else with the blanks beside
/// them.
Span WithLine(std::string_view text, Span span) {
  std::size_t begin = span.begin;
  while (begin > 0 && IsBlank(text[begin - 1]))
    --begin;
  if (begin > 0 && !IsLineEnd(text[begin - 1])) return {begin, span.end};
  std::size_t end = span.end;
  while (end < text.size() && IsBlank(text[end]))
    ++end;
  if (end == text.size()) return {begin, end};
  if (text.substr(end, 2) == "\r\n") return {begin, end + 2};
  return IsLineEnd(text[end]) ? Span{begin, end + 1} : Span{span.begin, end};
}

/// Removes statements; those side by side on a line as one.
void AddRemovals(std::string_view text, std::vector<Span> spans, std::vector<Edit>& edits) {
  std::sort(spans.begin(), spans.end(),
            [](const Span& a, const Span& b) { return a.begin < b.begin; });
  for (std::size_t i = 0; i < spans.size();) {
    Span joined = spans[i++];
    while (i < spans.size() &&
           std::all_of(text.begin() + static_cast<std::ptrdiff_t>(joined.end),
                       text.begin() + static_cast<std::ptrdiff_t>(spans[i].begin), IsBlank)) {
      joined.end = spans[i++].end;
    }
    edits.push_back({WithLine(text, joined), {}});
  }
}

/// Where new statements go: before the line that says where the scene ends.
std::size_t FindEnd(const SceneData& data) {
  const std::string_view text = data.text;
  constexpr std::string_view kEnd = "// End of ";
  std::size_t i = data.trailerBegin;
  while (i < text.size()) {
    if (text.substr(i, kEnd.size()) == kEnd) return i;
    if (text.substr(i, 2) == "//") {
      i = std::min(text.find_first_of("\r\n", i), text.size());
    } else if (text.substr(i, 2) == "/*") {
      i = std::min(text.find("*/", i), text.size() - 2) + 2;
    } else {
      ++i;
    }
  }
  return text.size();
}

std::string TextOf(const SceneData& data, const std::vector<NewCurve>& newCurves,
                   const Style& style) {
  const std::string_view lineEnd = style.lineEnd;
  std::string nodes;
  std::string connections;
  for (const NewCurve& added : newCurves) {
    const CurveRecord& record = data.curves.at(added.curve);
    const std::string& name = data.items[added.curve].name;
    nodes += "createNode " + data.TypeOf(added.curve).name + " -n " + style.Quote(name) + ";";
    (nodes += lineEnd) += "\tsetAttr \".tan\" 18;";
    (nodes += lineEnd) += "\tsetAttr \".wgt\" no;";
    (nodes += lineEnd) += "\t" + NewKeyStatements(record, style);
    nodes += lineEnd;
    connections += "connectAttr " + style.Quote(name + ".o") + " " + style.Quote(added.plug) + ";";
    connections += lineEnd;
  }
  return nodes + connections;
}

}  // namespace

void WriteScene(const SceneData& data, const std::vector<NewCurve>& newCurves,
                const TextChanges& changes, std::ostream& out) {
  const std::string_view text = data.text;
  const Style style(data);
  KeyEdits keyEdits;
  for (const auto& [item, record] : data.curves) {
    if (record.isNew || record.revision == 0 || record.curve.keys.empty()) continue;
    AddKeyEdits(text, record, style, keyEdits);
  }
  std::vector<Edit> edits = std::move(keyEdits.edits);
  AddRemovals(text, std::move(keyEdits.removed), edits);
  edits.insert(edits.end(), changes.edits.begin(), changes.edits.end());
  std::string added = changes.added + TextOf(data, newCurves, style);
  if (!added.empty()) {
    const std::size_t end = FindEnd(data);
    const bool isAtLine = end == 0 || text[end - 1] == '\n' || text[end - 1] == '\r';
    if (!isAtLine) added.insert(0, style.lineEnd);
    edits.push_back({{end, end}, std::move(added)});
  }
  std::sort(edits.begin(), edits.end(), [](const Edit& a, const Edit& b) {
    return std::tie(a.span.begin, a.span.end) < std::tie(b.span.begin, b.span.end);
  });
  const auto write = [&out](std::string_view piece) {
    out.write(piece.data(), static_cast<std::streamsize>(piece.size()));
  };
  std::size_t done = 0;
  for (const Edit& edit : edits) {
    write(text.substr(done, edit.span.begin - done));
    write(edit.text);
    done = edit.span.end;
  }
  write(text.substr(done));
}

}  // namespace lipvane::standalone
