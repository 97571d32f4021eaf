#pragma once

#include <cstddef>
#include <string>

#include "lipvane/engine/animation.h"
#include "lipvane/engine/bone_pose.h"
#include "lipvane/formats/phonemes.h"
#include "lipvane/host/standalone/scene.h"

/// What people read of a file.
namespace lipvane::cli {

/// Lines of one list; more are counted.
inline constexpr std::size_t kMaxListed = 100;

std::string LbpSummary(const std::string& fileName, const TBonePoseInfo& poseInfo,
                       const PhonemeMapping& mapping);

std::string LtfSummary(const std::string& fileName, const TAnimation& animation);

std::string SceneSummary(const std::string& fileName, const standalone::Scene& scene);

}  // namespace lipvane::cli
