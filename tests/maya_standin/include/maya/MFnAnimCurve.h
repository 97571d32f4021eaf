// The stand-in's own declaration; see ../../README.md.
#pragma once

#include <maya/MFnDependencyNode.h>
#include <maya/MPlug.h>
#include <maya/MTime.h>

#include <memory>

#include "lipvane/host/host.h"

namespace lipvane_standin {

class MFnAnimCurve : public MFnDependencyNode {
 public:
  enum AnimCurveType { kAnimCurveUnknown = 8 };
  MFnAnimCurve() = default;
  ~MFnAnimCurve() override;
  MObject create(const MObject& node, const MObject& attribute, MDGModifier* modifier = nullptr,
                 MStatus* status = nullptr);
  MObject create(const MObject& node, const MObject& attribute, AnimCurveType type,
                 MDGModifier* modifier = nullptr, MStatus* status = nullptr);
  bool isTimeInput(MStatus* status = nullptr) const;
  MStatus addKeyframe(const MTime& at, double value, MAnimCurveChange* change = nullptr);

 protected:
  bool Takes(const MObject& object) const override;

 private:
  MObject keyed_;  // what the curve below is that of
  std::unique_ptr<lipvane::host::AnimCurve> curve_;
};

}  // namespace lipvane_standin
