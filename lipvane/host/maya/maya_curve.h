#pragma once

#include <maya/MFnAnimCurve.h>
#include <maya/MObject.h>

#include <optional>
#include <string>

#include "lipvane/host/host.h"
#include "lipvane/host/maya/maya_handles.h"

namespace lipvane::maya {

class MayaHost;

/// The host's function set for animation curves.
class MayaCurve : public host::AnimCurve {
 public:
  explicit MayaCurve(MayaHost& host) : host_(host) {}

  host::Status Create(const host::Node& node, const host::Attribute& attribute) override;
  host::Status AddKeyframe(double frame, double value) override;

 private:
  /// The host makes no curve on a channel that has an input. Attaches to that input when it is a
  /// curve over time, else keeps why not.
  host::Status AttachToInput(MObject& node, const AttributeHandle& attribute);

  MayaHost& host_;
  MFnAnimCurve curve_;
  bool attached_ = false;  // the function set itself keeps an older curve when a creation fails
  // For what is said of keys; nothing of a curve that was never to be.
  bool isReported_ = true;
  std::optional<MObject> node_;
  std::string channel_;
  std::string refusal_;
};

}  // namespace lipvane::maya
