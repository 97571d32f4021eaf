#include "lipvane/check/joint_names.h"

#include <utility>

#include "lipvane/host/standalone/namespaces.h"
#include "lipvane/text/printable.h"
#include "lipvane/text/similar.h"

namespace lipvane::check {

JointNames::JointNames(const standalone::Scene& scene, std::string nameSpace)
    : scene_(scene), nameSpace_(std::move(nameSpace)) {}

std::string JointNames::DidYouMean(std::string_view name, const char* before, const char* behind) {
  constexpr std::size_t kMostJoints = 5000;
  if (guessesLeft_ == 0) return {};
  --guessesLeft_;
  if (names_.empty()) {
    for (standalone::NodeId node = 0; node < scene_.NodeCount(); ++node) {
      if (scene_.Kind(node) == standalone::NodeKind::kJoint && names_.size() < kMostJoints)
        names_.push_back(RelativeName(scene_, node, nameSpace_));
    }
  }
  const auto nearest = text::Nearest(name, names_);
  if (!nearest) return {};
  return before + ("did you mean " + text::QuotedLine(*nearest)) + "?" + behind;
}

}  // namespace lipvane::check
