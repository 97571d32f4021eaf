#pragma once

#include <cstddef>
#include <vector>

#include "lipvane/engine/bone_pose.h"
#include "lipvane/engine/expression.h"

namespace lipvane {

/// Where the bones of an output pose are found, by their outside identifiers, among the rig's bones
/// and among those of each expression. They are looked up once and kept; the identifiers are
/// compared before each use.
class BoneRoutes {
 public:
  /// An output bone and the first bone of its identifier in the rig or the expression.
  struct Route {
    std::size_t out;
    std::size_t position;
  };
  /// Those of the output bones that the rig or the expression has, in their order.
  struct Routes {
    std::vector<int> ids;  ///< of the rig or the expression, as they were looked up
    std::vector<Route> routes;
    int boneCount = 0;  ///< how many bones a pose needs to have one at every position
  };

  /// Looks up anew when any identifier is another than before. To be called before those below.
  void Update(const TBonePose& out, const TBonePoseInfo& rig,
              const std::vector<TExpressionInfo>& expressions);

  const Routes& IntoRig() const { return rig_; }
  const Routes& IntoExpression(std::size_t i) const { return expressions_[i]; }

 private:
  bool AreOf(const TBonePose& out, const TBonePoseInfo& rig,
             const std::vector<TExpressionInfo>& expressions) const;

  std::vector<int> outIds_;
  Routes rig_;
  std::vector<Routes> expressions_;
};

}  // namespace lipvane
