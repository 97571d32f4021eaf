#pragma once

#include <cstddef>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "bench/naive/lbp.h"
#include "lipvane/formats/lbp.h"

namespace lipvane::bench {

/// A bone pose file of random poses.
class LbpData {
 public:
  LbpData(int bones, int poses);

  /// The file, as the product writes it.
  const std::string& Text() const { return text_; }
  /// The part of it from the first pose's title on.
  std::string_view PoseSection() const { return std::string_view(text_).substr(posesBegin_); }
  /// Writes that part by the product.
  void WritePoses(std::ostream& out) const;
  /// The numbers of that part.
  const std::vector<std::vector<naive::BoneNumbers>>& Numbers() const { return numbers_; }

 private:
  std::vector<std::vector<LbpBone>> poses_;
  std::vector<std::vector<naive::BoneNumbers>> numbers_;
  std::string text_;
  std::size_t posesBegin_ = 0;
};

}  // namespace lipvane::bench
