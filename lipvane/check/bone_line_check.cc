#include "lipvane/check/bone_line_check.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "lipvane/check/words.h"
#include "lipvane/formats/layout.h"
#include "lipvane/text/numbers.h"

namespace lipvane::check {
namespace {

/// A file has six digits: what was of length 1 is off by 2e-6 at most, and by a little more once it
/// has been through single precision. Beyond this it is no rounding, and a joint visibly leaves its
/// pose.
constexpr double kLengthTolerance = 1e-3;

/// The engine holds single precision.
constexpr double kLargest = std::numeric_limits<float>::max();

bool IsRead(std::size_t number) {
  return (number >= kFirstOfTranslation && number < kFirstOfScale) || number >= kFirstOfRotation;
}

class BoneLineCheck {
 public:
  BoneLineCheck(const DataLine& line, const BoneLinePlace& place, Recorder& recorder)
      : line_(line), text_(WithoutTrailingSpace(line.text)), place_(place), recorder_(recorder) {
    SplitWords(text_, words_);
  }

  std::optional<std::string> Run() {
    if (HasTab(text_)) {
      Add(rule::kTab, "holds a tab, which separates nothing: what follows it is lost");
      return std::nullopt;
    }
    CheckCount();
    if (const auto before = WordsBeforeDoubledBlank(text_); before && *before < kNumbersOfBone) {
      Add(rule::kDoubledBlank, "has a blank too many before its number " +
                                   std::to_string(*before + 1) +
                                   ": the rest of the line is one token, and what follows in it is "
                                   "read as 0");
    }
    return CheckNumbers() ? CheckRotation() : std::nullopt;
  }

 private:
  void Add(const Rule& rule, const std::string& text) {
    recorder_.Add(line_.number, rule, Subject() + text);
  }

  std::string Subject() const {
    const std::string bone =
        place_.bone.empty() ? std::to_string(place_.number) : Quoted(place_.bone);
    return "bone " + bone + " in pose " + std::to_string(place_.pose) + " ";
  }

  void CheckCount() {
    const std::size_t count = words_.size();
    if (count == kNumbersOfBone) return;
    const std::string text = "has " + Counted(static_cast<long long>(count), "number", "numbers") +
                             ", not " + std::to_string(kNumbersOfBone);
    if (count < kNumbersOfBone) {
      Add(rule::kBoneLineShort, text + ": what is missing is read as 0");
    } else {
      Add(rule::kBoneLineLong, text + ": those at the end are not read");
    }
  }

  /// True when all are numbers. A line in another notation is one finding, not twenty-six.
  bool CheckNumbers() {
    const std::size_t count = std::min(words_.size(), kNumbersOfBone);
    std::string first;
    long long more = -1;
    for (std::size_t i = 0; i < count; ++i) {
      const auto problem = NumberProblem(words_[i], kLargest);
      if (!problem) continue;
      if (++more > 0) continue;
      first = "has a bad number " + std::to_string(i + 1) + ": " + *problem +
              (IsRead(i) ? "" : " (an import does not use it)");
    }
    if (more < 0) return true;
    if (more > 0) first += ", and " + std::to_string(more) + " more of this line";
    Add(rule::kNotANumber, first);
    return false;
  }

  std::optional<std::string> CheckRotation() {
    if (words_.size() < kNumbersOfBone) return std::nullopt;
    double square = 0;
    for (std::size_t i = kFirstOfRotation; i < kNumbersOfBone; ++i) {
      const double component = text::RealPrefix(words_[i]);
      square += component * component;
    }
    const double length = std::sqrt(square);
    if (std::abs(length - 1.0) <= kLengthTolerance) return std::nullopt;
    return Subject() + "has a rotation of length " + text::RoundedReal(length) + ", not 1";
  }

  const DataLine& line_;
  std::string_view text_;
  const BoneLinePlace& place_;
  Recorder& recorder_;
  std::vector<std::string_view> words_;
};

}  // namespace

std::optional<std::string> CheckBoneLine(const DataLine& line, const BoneLinePlace& place,
                                         Recorder& recorder) {
  return BoneLineCheck(line, place, recorder).Run();
}

}  // namespace lipvane::check
