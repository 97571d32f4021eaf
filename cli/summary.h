#pragma once

#include <string>

#include "lipvane/engine/animation.h"
#include "lipvane/engine/bone_pose.h"
#include "lipvane/formats/phonemes.h"
#include "lipvane/host/standalone/scene.h"

/// What people read of a file.
namespace lipvane::cli {

std::string LbpSummary(const std::string& fileName, const TBonePoseInfo& poseInfo,
                       const PhonemeMapping& mapping);

std::string LtfSummary(const std::string& fileName, const TAnimation& animation);

std::string SceneSummary(const std::string& fileName, const standalone::Scene& scene);

}  // namespace lipvane::cli
