#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "lipvane/host/standalone/scene.h"

namespace lipvane::standalone {

/// The name of nodes as a user writes it: a short name ("jaw"), the end of a path ("head|jaw") or a
/// whole path ("|head|jaw"). `*` stands for any characters and `?` for one; as in the host
/// neither reaches over a namespace's colon, and a leading colon is the root namespace.
class NamePattern {
 public:
  /// `page` is that of the scene, whose names are bytes of its file. Names without a leading colon
  /// are of the namespace.
  explicit NamePattern(std::string_view pattern, const CodePage& page = {},
                       const std::string& nameSpace = {});

  /// Without wildcards, so that a user means one node.
  bool IsPlain() const;
  /// The last part of the path, which the node's short name must match.
  const std::string& ShortName() const { return parts_.back(); }
  /// The world matches no pattern.
  bool Matches(const Scene& scene, PathId path) const;

 private:
  std::vector<std::string> parts_;
  bool wholePath_ = false;
};

}  // namespace lipvane::standalone
