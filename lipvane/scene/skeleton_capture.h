#pragma once

#include <optional>
#include <string>
#include <vector>

#include "lipvane/formats/lbp.h"
#include "lipvane/host/host.h"
#include "lipvane/scene/dag_search.h"

namespace lipvane::scene {

/// Reads bones by name off the scene, as often as poses are wanted. The scene is walked for the
/// first of them alone, and the paths and nodes found are kept. That rests on nothing that runs
/// with the time (expressions, scripts, callbacks) adding, deleting, renaming or reparenting bones:
/// one that is added is not seen, and one that is deleted is still asked for. A host that answers
/// with a failure then has the bone printed and left out, but no host promises to notice. Only a
/// walk that could not be begun is tried again.
///
/// Bones come in the order of the names; a name that several nodes bear gives several, a name that
/// none bears gives none. Nodes that cannot be read are printed anew for every name each time.
class SkeletonCapture {
 public:
  SkeletonCapture(host::Host& host, std::vector<std::string> boneNames);

  /// Appends each bone and the name of its first parent. Fails when the scene cannot be walked.
  host::Status AppendHierarchy(std::vector<LbpHierarchyLine>& hierarchy);
  /// Appends the local transform of each bone at the current time. A bone without a transform (the
  /// world) is printed with the label "MFnDagNode constructor" and left out. Fails when the scene
  /// cannot be walked.
  host::Status AppendPose(std::vector<LbpBone>& bones);

 private:
  host::Status ForEachBone(const DagSearch::Visitor& visit);

  host::Host& host_;
  std::vector<std::string> boneNames_;
  std::optional<DagSearch> search_;
};

}  // namespace lipvane::scene
