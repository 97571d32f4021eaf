#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "lipvane/check/data_line.h"
#include "lipvane/check/finding.h"

namespace lipvane::check {

/// Where a bone line belongs, for messages.
struct BoneLinePlace {
  std::string_view bone;   ///< empty when it cannot be told
  std::size_t number = 1;  ///< of the bone, from 1
  std::size_t pose = 0;    ///< from 0
};

/// One bone in one pose: its 26 numbers. The answer is what there is to say of a rotation that is
/// not of length 1: a scaled bone has it in every pose, which is for the caller to gather.
std::optional<std::string> CheckBoneLine(const DataLine& line, const BoneLinePlace& place,
                                         Recorder& recorder);

}  // namespace lipvane::check
