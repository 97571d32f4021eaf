#include "lipvane/host/standalone/own_commands.h"

#include <set>

#include "lipvane/text/numbers.h"

namespace lipvane::standalone {
namespace {

host::Status Fail(StandaloneHost& host, const std::string& text) {
  host.DisplayError(text);
  return host::StatusCode::kFailure;
}

/// A node with several paths is one object all the same.
bool IsOneObject(const Scene& scene, const std::vector<PathId>& paths) {
  std::set<NodeId> nodes;
  for (const PathId path : paths)
    nodes.insert(scene.NodeOf(path));
  return nodes.size() == 1;
}

}  // namespace

bool FindObject(StandaloneHost& host, const std::string& name, std::vector<PathId>& paths) {
  const NamePattern pattern(name, host.GetScene().Page());
  paths = host.FindPaths(pattern);
  if (paths.empty()) {
    host.DisplayError("No object matches name: " + name);
    return false;
  }
  if (!pattern.IsPlain() || IsOneObject(host.GetScene(), paths)) return true;
  host.DisplayError("More than one object matches name: " + name);
  return false;
}

CommandSyntax SelectSyntax() {
  CommandSyntax syntax;
  syntax.flags.AddFlag("-r", "-replace");
  syntax.flags.AddFlag("-add", "-add");
  syntax.flags.AddFlag("-cl", "-clear");
  syntax.objects = "names";
  return syntax;
}

host::Status Select(StandaloneHost& host, const WordArgDatabase& flags,
                    const std::vector<std::string>& names) {
  const bool clear = flags.IsFlagSet("-cl");
  const bool add = flags.IsFlagSet("-add");
  if (int{clear} + int{add} + int{flags.IsFlagSet("-r")} > 1) {
    return Fail(host, "select: only one of -replace, -add and -clear can be given");
  }
  if (clear) {
    if (!names.empty()) return Fail(host, "select: -clear takes no names");
    return host.ClearSelection();
  }
  if (names.empty()) return Fail(host, "select: no names are given");

  std::vector<PathId> paths;
  for (const std::string& name : names) {
    std::vector<PathId> found;
    if (!FindObject(host, name, found)) return host::StatusCode::kFailure;
    paths.insert(paths.end(), found.begin(), found.end());
  }
  host.Select(paths, add ? host::ListAdjustment::kAddToList : host::ListAdjustment::kReplaceList);
  return {};
}

CommandSyntax CurrentTimeSyntax() {
  CommandSyntax syntax;
  syntax.flags.AddFlag("-e", "-edit");
  syntax.objects = "a frame";
  return syntax;
}

host::Status CurrentTime(StandaloneHost& host, const WordArgDatabase& /*flags*/,
                         const std::vector<std::string>& frames) {
  if (frames.size() != 1) return Fail(host, "currentTime: it takes one frame");
  const auto frame = text::WholeReal(frames[0]);
  if (!frame || !host.SetCurrentTime(*frame).ok()) {
    return Fail(host, "currentTime: \"" + frames[0] + "\" is not a frame");
  }
  return {};
}

}  // namespace lipvane::standalone
