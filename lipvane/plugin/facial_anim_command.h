#pragma once

#include <memory>
#include <string>
#include <vector>

#include "lipvane/engine/bone_pose.h"
#include "lipvane/engine/controller.h"
#include "lipvane/host/command.h"
#include "lipvane/host/host.h"
#include "lipvane/scene/bone_curves.h"

namespace lipvane::plugin {

/// `facialAnim`: brings a bone pose file to the scene's joints that bear its names, a pose of keys
/// on every tenth frame (-import), or has them selected (-select). Not undoable.
class FacialAnimCommand : public host::Command {
 public:
  explicit FacialAnimCommand(host::Host& host) : host_(host) {}

  static std::unique_ptr<host::Command> Create(host::Host& host);
  static host::Syntax NewSyntax();

  /// Reads the arguments and runs one action: -import before -select. Only a selection's failure
  /// shows in the status.
  host::Status DoIt(const host::Arguments& arguments) override;

  /// Fills the fields below from the arguments; always succeeds.
  host::Status ParseArgs(const host::Arguments& arguments);

  // What was read from the arguments.
  const std::vector<std::string>& ExpressionNames() const { return expressionNames_; }
  const std::string& LbpFileName() const { return lbpFileName_; }
  const std::string& LtfFileName() const { return ltfFileName_; }
  bool MorphFlag() const { return morphFlag_ != 0; }
  bool ImportFlag() const { return importFlag_ != 0; }
  bool SelectFlag() const { return selectFlag_ != 0; }
  int ExpressionCount() const { return expressionCount_; }

 private:
  // The actions, in facial_anim_actions.cc.
  host::Status Load();
  host::Status MatchBones();
  host::Status ImportPoses();
  host::Status SelectBones();
  std::vector<std::string> BoneNames();

  void CollectExpressionNames(const host::Arguments& arguments);

  host::Host& host_;
  TController controller_;
  std::vector<scene::BoneCurveSet> boneCurves_;
  TBonePose outputPose_;
  std::vector<std::string> expressionNames_;
  std::string lbpFileName_;
  std::string ltfFileName_;
  int morphFlag_ = 0;
  int importFlag_ = 0;
  int selectFlag_ = 0;
  int expressionCount_ = 0;
  host::Node commandObject_;  // deliberate: held for the command's lifetime and used by nothing
};

}  // namespace lipvane::plugin
