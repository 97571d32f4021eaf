#include "cli/track_curve.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <initializer_list>
#include <ostream>
#include <string>

#include "cli/svg.h"

namespace lipvane::cli {
namespace {

template <typename Visit>
void VisitFinite(const TAnimationTrack& track, const Visit& visit) {
  for (int i = 0; i < track.KeyCount(); ++i) {
    const TAnimationKey& key = *track.GetKey(i);
    if (std::isfinite(key.value)) visit(key);
  }
}

class CurveWriter {
 public:
  CurveWriter(std::ostream& out, const CurvePlace& place) : out_(out), place_(place) {}

  void Write(const TAnimationTrack& track) {
    Append('M', {X(0.0), Y(0.0)});
    const TAnimationKey* last = nullptr;
    VisitFinite(track, [&](const TAnimationKey& key) { last = &key; });
    if (last != nullptr) WriteKeys(track, *last);
    RunTo(place_.end);
    Append('V', {Y(0.0)});
    path_ += 'Z';
    out_ << path_;
  }

 private:
  /// As a track is sampled: of the intervals that hold a moment the first one counts, and after the
  /// last key's time its value is held.
  void WriteKeys(const TAnimationTrack& track, const TAnimationKey& last) {
    const TAnimationKey* from = nullptr;
    VisitFinite(track, [&](const TAnimationKey& key) {
      if (from == nullptr) {
        if (key.time >= 0) StepTo(key.value);
        RunTo(std::clamp(static_cast<double>(key.time), 0.0, place_.end));
      } else {
        const double until =
            std::min(static_cast<double>(std::min(key.time, last.time)), place_.end);
        if (until > time_) EaseTo(until, *from, key);
      }
      from = &key;
    });
    if (time_ < place_.end) StepTo(last.value);
  }

  /// The ease a + (b - a)(3u^2 - 2u^3) between two keys, from where the pen is. It is a cubic in u,
  /// and u is linear in time: one cubic Bezier segment draws it exactly. A whole interval's control
  /// points stand at 1/3 and 2/3 of it with the values a and b.
  void EaseTo(double until, const TAnimationKey& from, const TAnimationKey& to) {
    const double a = from.value / place_.scale;
    const double b = to.value / place_.scale;
    const double length = static_cast<double>(to.time) - from.time;
    const auto valueAt = [&](double u) {
      const double share = u * u * (3.0 - 2.0 * u);
      return a * (1.0 - share) + b * share;
    };
    const auto slopeAt = [&](double u) { return 6.0 * (b - a) * u * (1.0 - u); };
    const double u = (time_ - from.time) / length;
    const double v = (until - from.time) / length;
    const double third = (v - u) / 3.0;

    StepToHeight(valueAt(u));
    if (a == b) return RunTo(until);
    height_ = valueAt(v);
    Append('C', {X(time_ + third * length), Y(valueAt(u) + third * slopeAt(u)),
                 X(until - third * length), Y(height_ - third * slopeAt(v)), X(until), Y(height_)});
    time_ = until;
  }

  void StepTo(double value) { StepToHeight(value / place_.scale); }
  void StepToHeight(double height) {
    if (height == height_) return;
    height_ = height;
    Append('V', {Y(height)});
  }
  void RunTo(double time) {
    if (time <= time_) return;
    time_ = time;
    Append('H', {X(time)});
  }

  double X(double time) const { return place_.left + time * place_.perTick; }
  double Y(double height) const { return place_.baseline - height * place_.height; }

  void Append(char command, std::initializer_list<double> coordinates) {
    constexpr std::size_t kPiece = 1U << 16U;
    if (path_.size() > kPiece) {
      out_ << path_;
      path_.clear();
    }
    char before = command;
    for (const double coordinate : coordinates) {
      path_ += before;
      AppendCoordinate(path_, coordinate);
      before = ' ';
    }
  }

  std::ostream& out_;
  const CurvePlace& place_;
  std::string path_;  // what is not out yet
  // Where the pen is; a height of 1 is the scale's.
  double time_ = 0.0;
  double height_ = 0.0;
};

}  // namespace

ValueRange RangeOf(const TAnimationTrack& track) {
  ValueRange range;
  VisitFinite(track, [&](const TAnimationKey& key) {
    range.least = std::min(range.least, key.value);
    range.largest = std::max(range.largest, key.value);
  });
  return range;
}

void WriteCurve(std::ostream& out, const TAnimationTrack& track, const CurvePlace& place) {
  CurveWriter(out, place).Write(track);
}

}  // namespace lipvane::cli
