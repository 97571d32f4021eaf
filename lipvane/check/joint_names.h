#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "lipvane/host/standalone/scene.h"

namespace lipvane::check {

/// Guesses which joint of a scene a name that matches none was meant for. Of a long list of such
/// names, and in a very large scene, only so many are looked at: each name is compared with each
/// joint.
class JointNames {
 public:
  /// Of the joints within a namespace ("" for the root). The scene must outlive this.
  JointNames(const standalone::Scene& scene, std::string nameSpace);

  /// `did you mean "jaw"?` between what is put before and behind it, or nothing.
  std::string DidYouMean(std::string_view name, const char* before, const char* behind = "");

 private:
  const standalone::Scene& scene_;
  std::string nameSpace_;
  std::vector<std::string> names_;  // made when first needed
  std::size_t guessesLeft_ = 10;
};

}  // namespace lipvane::check
