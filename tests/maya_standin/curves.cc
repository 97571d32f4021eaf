// Animation curves, and the plugs that tell what drives a channel.

#include <maya/MFnAnimCurve.h>
#include <maya/MPlug.h>
#include <maya/MPlugArray.h>

#include "tests/maya_standin/content.h"

namespace lipvane_standin {

namespace host = lipvane::host;
using lipvane::test::ChannelInput;
using standin::Answer;
using standin::Content;

namespace {

ChannelInput InputOf(const MObject& node, const MObject& attribute) {
  return lipvane::test::Standin::Current().scene.InputOf(standin::NodeOf(node),
                                                         standin::AttributeOf(attribute));
}

/// The node that drives a channel.
MObject DriverOf(const ChannelInput& input, const MObject& node, const MObject& attribute) {
  Content content;
  content.isTimeCurve = input.kind == ChannelInput::Kind::kTimeCurve;
  content.kind = content.isTimeCurve || input.kind == ChannelInput::Kind::kDrivenKey
                     ? Content::Kind::kCurve
                     : Content::Kind::kOtherNode;
  content.node = standin::NodeOf(node);
  content.attribute = standin::AttributeOf(attribute);
  content.name = input.driver;
  return MObject(std::make_shared<const Content>(content));
}

}  // namespace

MPlug::MPlug(const MObject& node, const MObject& attribute, MStatus* status)
    : node_(node), attribute_(attribute) {
  Answer(status, MStatus::kSuccess);
}
bool MPlug::isLocked(MStatus* status) const {
  Answer(status, MStatus::kSuccess);
  return InputOf(node_, attribute_).isLocked;
}
bool MPlug::isChild(MStatus* status) const {
  Answer(status, MStatus::kSuccess);
  return !isCompound_;
}
MPlug MPlug::parent(MStatus* status) const {
  Answer(status, isCompound_ ? MStatus::kFailure : MStatus::kSuccess);
  MPlug compound = *this;
  compound.isCompound_ = true;
  return compound;
}
MObject MPlug::node(MStatus* status) const {
  Answer(status, MStatus::kSuccess);
  return node_;
}
bool MPlug::connectedTo(MPlugArray& array, bool asDst, bool asSrc, MStatus* status) const {
  Answer(status, MStatus::kSuccess);
  array.plugs_.clear();
  if (asSrc) array.plugs_.push_back(*this);  // for whatever it drives in its turn
  if (!asDst) return asSrc;
  const ChannelInput input = InputOf(node_, attribute_);
  if (!input.driver.empty() && input.isOfCompound == isCompound_) {
    array.plugs_.emplace_back(DriverOf(input, node_, attribute_), MObject());
  }
  return !array.plugs_.empty();
}

MPlugArray::MPlugArray() = default;
unsigned int MPlugArray::length() const {
  return static_cast<unsigned int>(plugs_.size());
}
MPlug& MPlugArray::operator[](unsigned int index) {
  return plugs_.at(index);
}

MFnAnimCurve::MFnAnimCurve() = default;
MFnAnimCurve::~MFnAnimCurve() = default;
MObject MFnAnimCurve::create(const MObject& node, const MObject& attribute,
                             MDGModifier* /*modifier*/, MStatus* status) {
  // A channel that has an input gets no curve, and the function set keeps what it had.
  const ChannelInput input = InputOf(node, attribute);
  if (input.kind != ChannelInput::Kind::kNone || input.isLocked) {
    Answer(status, MStatus::kFailure);
    return {};
  }
  auto curve = standin::Host().NewAnimCurve();
  const host::Status created =
      curve->Create(standin::NodeOf(node), standin::AttributeOf(attribute));
  Answer(status, standin::ToMStatus(created));
  if (!created.ok()) return {};
  curve_ = std::move(curve);
  object_ = DriverOf({ChannelInput::Kind::kTimeCurve, "curve", false, false}, node, attribute);
  return object_;
}
MStatus MFnAnimCurve::setObject(MObject& object) {
  if (object.isNull() || object.Held()->kind != Content::Kind::kCurve) {
    return MStatus::kInvalidParameter;
  }
  if (object.Held()->isTimeCurve) {
    auto curve = standin::Host().NewAnimCurve();
    const host::Status attached = curve->Create(object.Held()->node, object.Held()->attribute);
    if (!attached.ok()) return standin::ToMStatus(attached);
    curve_ = std::move(curve);
  }
  return MFnBase::setObject(object);
}
bool MFnAnimCurve::isTimeInput(MStatus* status) const {
  Answer(status, object_.isNull() ? MStatus::kFailure : MStatus::kSuccess);
  return !object_.isNull() && object_.Held()->isTimeCurve;
}
MStatus MFnAnimCurve::addKeyframe(const MTime& at, double value, MAnimCurveChange* /*change*/) {
  if (curve_ == nullptr) return MStatus::kFailure;
  return standin::ToMStatus(curve_->AddKeyframe(at.Frame(), value));
}

}  // namespace lipvane_standin
