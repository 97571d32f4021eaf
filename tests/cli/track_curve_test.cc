#include "cli/track_curve.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace lipvane::test {
namespace {

using Keys = std::vector<TAnimationKey>;

TAnimationTrack TrackOf(const Keys& keys) {
  TAnimationTrack track;
  for (const TAnimationKey& key : keys)
    track.AddKey(key);
  return track;
}

/// Points of the upper edge of a curve: values by time. Times stand 1 to the right of themselves, a
/// value of 1 is 1000 high.
std::map<double, double> EdgeOf(const TAnimationTrack& track, double end) {
  cli::CurvePlace place;
  place.left = 1.0;
  place.end = end;
  place.baseline = 2000.0;
  place.height = 4000.0;
  place.scale = 4.0;
  std::ostringstream out;
  cli::WriteCurve(out, track, place);

  std::istringstream path(out.str());
  std::map<double, double> edge;
  double x = 0.0;
  double y = 0.0;
  for (char command = 0; path >> command && command != 'Z';) {
    if (command == 'M') {
      path >> x >> y;
    } else if (command == 'V') {
      path >> y;
    } else if (command == 'H') {
      path >> x;
      edge[x - 1.5] = (2000.0 - y) / 1000.0;
    } else if (command == 'C') {
      double x1, y1, x2, y2, x3, y3;
      path >> x1 >> y1 >> x2 >> y2 >> x3 >> y3;
      for (const double u : {0.1, 0.5, 0.8}) {
        const auto at = [&](double p0, double p1, double p2, double p3) {
          const double v = 1.0 - u;
          return v * v * v * p0 + 3 * v * v * u * p1 + 3 * v * u * u * p2 + u * u * u * p3;
        };
        edge[at(x, x1, x2, x3) - 1.0] = (2000.0 - at(y, y1, y2, y3)) / 1000.0;
      }
      x = x3;
      y = y3;
    }
  }
  EXPECT_EQ(x, end + 1.0) << out.str();
  EXPECT_EQ(y, 2000.0) << out.str();
  return edge;
}

TEST(TrackCurveTest, DrawsWhatIsPlayed) {
  const std::vector<Keys> cases = {
      {},
      {{300, 0.5}},
      {{-300, 0.5}},
      {{100, 0}, {400, 1}, {500, 1}, {900, -3.5}},
      {{-500, 0}, {500, 1}, {800, 0.25}},                     // cut at 0
      {{0, 0}, {700, 1}, {700, 0.5}, {900, 1}, {900, 0.25}},  // equal times
      {{0, 0}, {600, 1}, {300, 0.2}, {900, 0.9}},             // back and on
      {{0, 0}, {800, 1}, {100, 0.3}, {300, 0.5}},             // back for good
      {{600, 0.4}, {200, 1}},                                 // before the first
      {{0, 0}, {1500, 0.4}},                                  // over the end
      {{1500, 0.4}, {2000, 1}, {100, 0.2}},                   // beyond the end
      {{std::numeric_limits<int>::min(), -1}, {std::numeric_limits<int>::max(), 1}, {900, 0.5}}};
  for (const Keys& keys : cases) {
    const TAnimationTrack track = TrackOf(keys);
    const auto edge = EdgeOf(track, 1000.0);
    EXPECT_FALSE(edge.empty());
    for (const auto& [time, value] : edge)
      EXPECT_NEAR(value, track.ValueAtTime(time), 2e-4) << keys.size() << " keys, at " << time;
  }
}

TEST(TrackCurveTest, MayBeLongerThanWhatIsHeldBackAtOnce) {
  TAnimationTrack track;
  for (int i = 0; i <= 6000; ++i)
    track.AddKey({i, i % 2 / 4.0});
  const auto edge = EdgeOf(track, 6000.0);
  EXPECT_EQ(edge.size(), 18000U);
  EXPECT_NEAR(edge.rbegin()->second, track.ValueAtTime(edge.rbegin()->first), 1e-3);
}

TEST(TrackCurveTest, LeavesOutWhatIsNotFinite) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  const TAnimationTrack track =
      TrackOf({{0, kInfinity}, {100, -0.5}, {200, std::nan("")}, {300, 2}, {400, -kInfinity}});
  EXPECT_EQ(EdgeOf(track, 500.0), EdgeOf(TrackOf({{100, -0.5}, {300, 2}}), 500.0));
  const cli::ValueRange range = cli::RangeOf(track);
  EXPECT_EQ(range.least, -0.5);
  EXPECT_EQ(range.largest, 2.0);
}

}  // namespace
}  // namespace lipvane::test
