// Animation curves, and the plugs that tell what drives a channel.

#include <maya/MFnAnimCurve.h>
#include <maya/MPlug.h>
#include <maya/MPlugArray.h>

#include <string>
#include <utility>

#include "tests/maya_standin/content.h"

namespace lipvane_standin {

namespace host = lipvane::host;
using lipvane::test::ChannelInput;
using standin::Answer;
using standin::Content;

namespace {

ChannelInput InputOf(const host::Node& node, const host::Attribute& attribute) {
  return lipvane::test::Standin::Current().scene.InputOf(node, attribute);
}
ChannelInput InputOf(const MObject& node, const MObject& attribute) {
  return InputOf(standin::NodeOf(node), standin::AttributeOf(attribute));
}

MObject OtherNode(Content content, const std::string& name) {
  content.kind = Content::Kind::kOtherNode;
  content.name = content.type = name;
  return MObject(std::make_shared<const Content>(content));
}

/// The node that `content.step` nodes part from its channel.
MObject DriverOf(const ChannelInput& input, Content content) {
  if (content.step < input.between.size()) return OtherNode(content, input.between[content.step]);
  content.isTimeCurve = input.kind == ChannelInput::Kind::kTimeCurve;
  if (!content.isTimeCurve && input.kind != ChannelInput::Kind::kDrivenKey)
    return OtherNode(content, input.driver);
  content.kind = Content::Kind::kCurve;
  content.name = input.driver;
  return MObject(std::make_shared<const Content>(content));
}

/// The node that is connected to an attribute of a node; null when there is none.
MObject SourceOf(const MObject& node, const MObject& attribute, bool isCompound) {
  if (node.isNull()) return {};
  Content content = *node.Held();
  if (content.kind == Content::Kind::kNode) {
    content.attribute = standin::AttributeOf(attribute);
    const ChannelInput input = InputOf(content.node, content.attribute);
    const bool isDriven = !input.driver.empty() && input.isOfCompound == isCompound;
    return isDriven ? DriverOf(input, content) : MObject();
  }
  const ChannelInput input = InputOf(content.node, content.attribute);
  if (!attribute.isNull()) {  // the one of a curve, which the host may connect with its own time
    return content.isTimeCurve ? OtherNode(content, input.isRetimed ? "timeWarp" : "time1")
                               : MObject();
  }
  // The attribute that a connection came from may have an input itself, but for an output.
  if (content.step >= input.between.size() || content.type == "unitConversion") return {};
  ++content.step;
  return DriverOf(input, content);
}

}  // namespace

MPlug::MPlug(const MObject& node, const MObject& attribute) : node_(node), attribute_(attribute) {}
bool MPlug::isLocked(MStatus* status) const {
  Answer(status, MStatus::kSuccess);
  const ChannelInput input = InputOf(node_, attribute_);
  return input.isLocked && input.isLockOfCompound == isCompound_;
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
  const MObject source = asDst ? SourceOf(node_, attribute_, isCompound_) : MObject();
  if (!source.isNull()) array.plugs_.emplace_back(source, MObject());
  return !array.plugs_.empty();
}

MPlugArray::MPlugArray() = default;
unsigned int MPlugArray::length() const {
  return static_cast<unsigned int>(plugs_.size());
}
MPlug& MPlugArray::operator[](unsigned int index) {
  return plugs_.at(index);
}

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
  Content content;
  content.kind = Content::Kind::kCurve;
  content.isTimeCurve = true;
  keyed_ = object_ = MObject(std::make_shared<const Content>(content));
  return object_;
}
bool MFnAnimCurve::Takes(const MObject& object) const {
  return !object.isNull() && object.Held()->kind == Content::Kind::kCurve;
}
bool MFnAnimCurve::isTimeInput(MStatus* status) const {
  Answer(status, object_.isNull() ? MStatus::kFailure : MStatus::kSuccess);
  return !object_.isNull() && object_.Held()->isTimeCurve;
}
MStatus MFnAnimCurve::addKeyframe(const MTime& at, double value, MAnimCurveChange* /*change*/) {
  if (object_.isNull()) return MStatus::kFailure;
  if (keyed_.Held() != object_.Held()) {
    auto curve = standin::Host().NewAnimCurve();
    const host::Status attached = curve->Create(object_.Held()->node, object_.Held()->attribute);
    if (!attached.ok()) return standin::ToMStatus(attached);
    curve_ = std::move(curve);
    keyed_ = object_;
  }
  return standin::ToMStatus(curve_->AddKeyframe(at.Frame(), value));
}

}  // namespace lipvane_standin
