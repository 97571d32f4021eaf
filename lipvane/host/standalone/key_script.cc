#include "lipvane/host/standalone/key_script.h"

#include <algorithm>
#include <cstddef>
#include <ostream>
#include <string_view>

#include "lipvane/host/standalone/curve_keys.h"
#include "lipvane/host/standalone/limits.h"
#include "lipvane/host/standalone/ma_tokens.h"
#include "lipvane/host/standalone/tangent_names.h"
#include "lipvane/text/file.h"
#include "lipvane/text/numbers.h"
#include "lipvane/text/printable.h"

namespace lipvane::standalone {
namespace {

/// The path with the namespace before each of its names.
std::string InNamespace(std::string_view path, const std::string& nameSpace, const CodePage& page) {
  if (nameSpace.empty()) return std::string(path);
  std::string result;
  while (!path.empty()) {
    if (path[0] == '|') {
      result += '|';
      path.remove_prefix(1);
    }
    const std::size_t end = std::min(page.Find(path, '|'), path.size());
    (result += nameSpace) += ':';
    result += path.substr(0, end);
    path.remove_prefix(end);
  }
  return result;
}

/// One channel and its curve, as lines name it.
struct Row {
  std::string node;
  Channel channel;
  const Curve* curve;
  const std::vector<double>* frames;
};

std::vector<Row> MakeRows(const Scene& scene, const std::vector<KeyedNode>& nodes,
                          const std::string& nameSpace) {
  constexpr std::size_t kLineSize = 100;  // but for the node, about
  std::vector<Row> rows;
  std::size_t pathBytes = 0;
  std::size_t bytes = 0;
  for (const KeyedNode& keyed : nodes) {
    const std::string path = scene.ShortestName(scene.FirstPath(keyed.node));
    if (path.find_first_of("*?") != std::string::npos) {
      throw SceneError("\"" + path + "\" cannot be named in a script: it would stand for others");
    }
    for (const Channel channel : keyed.channels) {
      const Curve* const curve = scene.CurveOf(keyed.node, channel);
      if (curve == nullptr || scene.RefusalOf(keyed.node, channel) != Refusal::kNone) continue;
      rows.push_back({InNamespace(path, nameSpace, scene.Page()), channel, curve, &keyed.frames});
      pathBytes += rows.back().node.size();
      bytes += (kLineSize + rows.back().node.size()) * keyed.frames.size();
      if (pathBytes > kMaxPathBytes || bytes > text::kMaxFileSize)
        throw SceneError("the keys make a larger script than can be read again");
    }
  }
  return rows;
}

std::string Header(const Scene& scene, const KeyScriptOptions& options) {
  return "// " + text::PrintableLine(options.source) +
         ".\n"
         "// Made by lipvane for frames at " +
         text::ExactReal(options.framesPerSecond) + " a second, lengths in the unit \"" +
         scene.LinearUnit() + "\", angles in \"" + scene.AngularUnit() +
         "\".\n"
         "//\n"
         "// Use: open the shot, see that its working units are these, and source this file.\n"
         "// It first looks whether every channel is there. If one is missing, it stops and has\n"
         "// changed nothing. Then it sets all keys; one undo takes them back. Other keys, the\n"
         "// current time and the selection stay as they are.\n"
         "// If a later line fails, all the same: run \"undoInfo -closeChunk;\" and undo.\n";
}

void AppendTangent(const char* flag, Tangent tangent, std::string& line) {
  const std::string_view name = TangentName(tangent);
  if (!name.empty()) ((line += flag) += name) += ' ';
}

void WriteKeys(const Row& row, double unit, const CodePage& page, std::ostream& out) {
  const std::string object =
      std::string("-at ") + ChannelName(row.channel) + " " + Quoted(row.node, page) + ";\n";
  for (const double frame : *row.frames) {
    const CurveKey* const key = row.curve->FindKey(frame);
    if (key == nullptr) continue;
    std::string line =
        "setKeyframe -t " + text::ExactReal(frame) + " -v " + InFileUnit(key->value, unit) + " ";
    // The host takes "step" for what comes after a key alone.
    if (key->inType != Tangent::kStep) AppendTangent("-itt ", key->inType, line);
    AppendTangent("-ott ", key->outType, line);
    out << line << object;
  }
}

}  // namespace

void WriteKeyScript(const Scene& scene, const std::vector<KeyedNode>& nodes,
                    const KeyScriptOptions& options, std::ostream& out) {
  const std::vector<Row> rows = MakeRows(scene, nodes, options.nameSpace);
  out << Header(scene, options);
  for (const Row& row : rows) {
    const std::string plug = row.node + "." + ChannelName(row.channel);
    out << "getAttr " << Quoted(plug, scene.Page()) << ";\n";
  }
  out << "undoInfo -openChunk;\n";
  for (const Row& row : rows)
    WriteKeys(row, scene.UnitSize(row.channel), scene.Page(), out);
  out << "undoInfo -closeChunk;\n";
}

}  // namespace lipvane::standalone
