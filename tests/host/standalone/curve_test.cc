#include "lipvane/host/standalone/curve.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <random>
#include <utility>
#include <vector>

namespace lipvane::standalone {
namespace {

using Points = std::vector<std::pair<double, double>>;

Curve Make(Tangent type, const Points& points, Infinity beyond = Infinity::kConstant) {
  Curve curve;
  for (const auto& [time, value] : points) {
    CurveKey key;
    key.time = time;
    key.value = value;
    key.inType = key.outType = type;
    curve.keys.push_back(key);
  }
  curve.before = curve.after = beyond;
  return curve;
}

/// A cubic by repeated interpolation of its control points, to check the polynomials against.
double DeCasteljau(std::vector<double> points, double u) {
  for (std::size_t count = points.size() - 1; count > 0; --count) {
    for (std::size_t i = 0; i < count; ++i)
      points[i] += u * (points[i + 1] - points[i]);
  }
  return points[0];
}

/// Expects a curve from 0 to 10 to be the cubic of these control points; times run from 0 to 1.
void ExpectBezier(const Curve& curve, const std::vector<double>& times,
                  const std::vector<double>& values) {
  double last = 0;
  for (int i = 1; i < 1000; ++i) {
    const double time = DeCasteljau(times, i / 1000.0);
    ASSERT_GE(time, last - 1e-12) << "control points within the segment keep time in order";
    // Where time nearly stands still its rounding is all that there is to see.
    if (time - last > 2e-6) {
      EXPECT_NEAR(curve.ValueAt(10 * time), DeCasteljau(values, i / 1000.0), 1e-6);
    }
    last = time;
  }
}

/// Keys at 0 and 10 with fixed tangents at 25 frames a second.
Curve Fixed(bool weighted, TangentVector out, TangentVector in) {
  Curve curve = Make(Tangent::kFixed, {{0, 1}, {10, 3}});
  curve.framesPerSecond = 25;
  curve.weighted = weighted;
  curve.keys[0].outTangent = out;
  curve.keys[1].inTangent = in;
  return curve;
}

const std::vector<Tangent> kAllTypes{Tangent::kFixed,   Tangent::kLinear,   Tangent::kFlat,
                                     Tangent::kStep,    Tangent::kSpline,   Tangent::kClamped,
                                     Tangent::kPlateau, Tangent::kStepNext, Tangent::kAuto};

TEST(CurveTest, FewKeys) {
  EXPECT_EQ(Curve{}.ValueAt(5), 0);
  const Curve curve = Make(Tangent::kFixed, {{3, 7}}, Infinity::kCycleOffset);
  for (const double time : {-1e9, 3.0, 4.0})
    EXPECT_EQ(curve.ValueAt(time), 7);
}

TEST(CurveTest, Steps) {
  Curve curve = Make(Tangent::kStep, {{0, 1}, {10, 2}, {20, 5}});
  curve.keys[1].outType = Tangent::kStepNext;
  EXPECT_EQ(curve.ValueAt(9.999), 1);
  EXPECT_EQ(curve.ValueAt(10), 2);
  EXPECT_EQ(curve.ValueAt(10.001), 5);
  // The left key decides before the right one does.
  curve.keys[1].inType = Tangent::kStepNext;
  EXPECT_EQ(curve.ValueAt(5), 1);
  curve.keys[0].outType = Tangent::kAuto;
  EXPECT_EQ(curve.ValueAt(0.001), 2);
}

TEST(CurveTest, SlopesOfTangents) {
  for (const Tangent type : {Tangent::kLinear, Tangent::kSpline, Tangent::kClamped}) {
    EXPECT_NEAR(Make(type, {{10, 1}, {20, 6}}).ValueAt(12), 2, 1e-12);
  }
  const auto slopeAt = [](const Curve& curve, double time) {
    return (curve.ValueAt(time + 1e-6) - curve.ValueAt(time - 1e-6)) / 2e-6;
  };
  const Points rising{{0, 0}, {10, 10}, {30, 60}, {40, 60}};
  for (const Tangent type : {Tangent::kSpline, Tangent::kPlateau, Tangent::kAuto}) {
    EXPECT_NEAR(slopeAt(Make(type, rising), 10), 2, 1e-4);
  }
  EXPECT_NEAR(slopeAt(Make(Tangent::kSpline, rising), 30), 50.0 / 30, 1e-4);
  EXPECT_NEAR(slopeAt(Make(Tangent::kFlat, rising), 10), 0, 1e-4);
  EXPECT_NEAR(slopeAt(Make(Tangent::kAuto, rising), 30), 0, 1e-4);
  // As steep as the gentle side allows, and no steeper.
  EXPECT_NEAR(slopeAt(Make(Tangent::kAuto, {{0, 0}, {10, 1}, {11, 50}}), 10), 0.3, 1e-3);
  EXPECT_NEAR(slopeAt(Make(Tangent::kAuto, {{0, 0}, {10, -1}, {11, -50}}), 10), -0.3, 1e-3);

  const Curve clamped = Make(Tangent::kClamped, rising);
  EXPECT_NEAR(slopeAt(clamped, 10), 2, 1e-4);
  EXPECT_EQ(clamped.ValueAt(33), 60);
  EXPECT_NEAR((clamped.ValueAt(30) - clamped.ValueAt(30 - 1e-6)) / 1e-6, 50.0 / 30, 1e-4);
}

TEST(CurveTest, AutoAndPlateauNeverOvershoot) {
  std::mt19937 random(7);
  std::uniform_real_distribution<double> rise(-5, 5);
  std::exponential_distribution<double> gap(0.2);
  for (int round = 0; round < 100; ++round) {
    Points points{{0, 0}};
    for (int i = 0; i < 12; ++i) {
      const double way = round % 2 == 0 ? rise(random) : std::abs(rise(random));
      points.emplace_back(points.back().first + 0.01 + gap(random), points.back().second + way);
    }
    const Curve curve = Make(round % 4 < 2 ? Tangent::kAuto : Tangent::kPlateau, points);
    for (std::size_t i = 0; i + 1 < points.size(); ++i) {
      const auto [start, from] = points[i];
      const auto [end, to] = points[i + 1];
      double last = from;
      for (double u = 0; u < 1; u += 0.01) {
        const double now = curve.ValueAt(start + u * (end - start));
        ASSERT_GE((now - last) * (to - from), -1e-12) << "turns back between two keys";
        ASSERT_GE((to - now) * (to - from), -1e-12) << "leaves their range";
        last = now;
      }
    }
  }
}

TEST(CurveTest, NonWeightedTangentsCountBySlopeAlone) {
  // Slopes of 4 and -2 a second at 25 frames a second, over 0.4 seconds.
  for (const double length : {0.1, 1.0, 300.0}) {
    const Curve curve = Fixed(false, {length, 4 * length}, {length, -2 * length});
    ExpectBezier(curve, {0, 1.0 / 3, 2.0 / 3, 1}, {1, 1 + 4 * 0.4 / 3, 3 + 2 * 0.4 / 3, 3});
  }
}

TEST(CurveTest, VerticalTangentsAreSteepButFinite) {
  for (const bool weighted : {false, true}) {
    for (const TangentVector& vector :
         {TangentVector{0, 5}, {0, -5}, {0, 0}, {-1, 2}, {1e-320, 1}, {1e308, 1e308}}) {
      const Curve curve = Fixed(weighted, vector, vector);
      for (double time = 0; time <= 10; time += 0.25) {
        EXPECT_TRUE(std::isfinite(curve.ValueAt(time)));
      }
    }
  }
  const Curve up = Fixed(false, {0, 5}, {1, 0});
  EXPECT_GT(up.ValueAt(1), 1000);
  EXPECT_LT(Fixed(false, {0, -5}, {1, 0}).ValueAt(1), -1000);
}

TEST(CurveTest, WeightedTangentsAreBeziers) {
  std::mt19937 random(3);
  std::uniform_real_distribution<double> length(0, 1.2);  // seconds; the segment has 0.4
  std::uniform_real_distribution<double> rise(-6, 6);
  for (int round = 0; round < 40; ++round) {
    const TangentVector out{length(random), rise(random)};
    const TangentVector in{length(random), rise(random)};
    ExpectBezier(Fixed(true, out, in), {0, out.x / 1.2, 1 - in.x / 1.2, 1},
                 {1, 1 + out.y / 3, 3 - in.y / 3, 3});
  }
}

TEST(CurveTest, LongTangentsAreCutWhereTimeWouldTurnBack) {
  // 0.4 seconds: tangents of 1.2 reach from key to key.
  struct Case {
    double outLength, inLength, outExpected, inExpected;
  };
  const std::vector<Case> cases{
      {2.4, 2.4, 1.6, 0.4},    // far too long: a third of the right one is left
      {1.6, 0.0, 1.6, 0.4},    // the left one has the say, and the right one must reach for it
      {0.0, 2.4, 0.0, 1.2},    // alone, none may pass the other key
      {0.4, 1.55, 0.4, 1.55},  // passing it a little is fine with room on the other side
      {-1.0, 0.4, 0.0, 0.4}};
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.outLength << " " << c.inLength);
    const Curve curve = Fixed(true, {c.outLength, c.outLength * 2}, {c.inLength, c.inLength * 3});
    // A tangent keeps its slope; one without a length had no slope to keep.
    const double inRise = c.inLength == 0 ? 0 : c.inExpected;
    ExpectBezier(curve, {0, c.outExpected / 1.2, 1 - c.inExpected / 1.2, 1},
                 {1, 1 + 2 * c.outExpected / 3, 3 - inRise, 3});
  }
}

TEST(CurveTest, InfinityGoesOnAlongTheEndTangents) {
  Curve curve = Make(Tangent::kFixed, {{0, 1}, {10, 3}}, Infinity::kLinear);
  curve.framesPerSecond = 25;
  curve.keys[0].inTangent = {1, 50};
  curve.keys[1].outTangent = {2, -100};
  EXPECT_NEAR(curve.ValueAt(-3), 1 - 6, 1e-12);
  EXPECT_NEAR(curve.ValueAt(12), 3 - 4, 1e-12);
  const Curve line = Make(Tangent::kLinear, {{0, 1}, {10, 3}}, Infinity::kLinear);
  EXPECT_NEAR(line.ValueAt(-10), -1, 1e-12);
  EXPECT_NEAR(line.ValueAt(20), 5, 1e-12);
}

TEST(CurveTest, InfinityRepeats) {
  const auto at = [](Infinity infinity, double time) {
    return Make(Tangent::kLinear, {{10, 1}, {14, 5}, {20, 7}}, infinity).ValueAt(time);
  };
  for (const double inside : {10.5, 12.0, 14.0, 19.0}) {
    const double value = at(Infinity::kConstant, inside);
    for (const int cycle : {-5, -2, -1, 1, 2, 7}) {
      SCOPED_TRACE(testing::Message() << inside << " in cycle " << cycle);
      const double time = inside + 10 * cycle;
      EXPECT_NEAR(at(Infinity::kCycle, time), value, 1e-12);
      EXPECT_NEAR(at(Infinity::kCycleOffset, time), value + 6 * cycle, 1e-12);
      const double turned = cycle % 2 == 0 ? inside : 30 - inside;
      EXPECT_NEAR(at(Infinity::kOscillate, time), at(Infinity::kConstant, turned), 1e-12);
    }
  }
  // No jump from cycle to cycle, however the rounding falls.
  const Curve line = Make(Tangent::kLinear, {{0.1, 1}, {0.4, 7}}, Infinity::kCycleOffset);
  for (int i = -50; i <= 50; ++i) {
    const double time = 0.1 + i * 0.3;
    for (const double near : {time, std::nextafter(time, -99.0), std::nextafter(time, 99.0)}) {
      EXPECT_NEAR(line.ValueAt(near), 1 + i * 6, 1e-9);
    }
  }
}

TEST(CurveTest, ExtremesGiveNumbers) {
  const double huge = std::numeric_limits<double>::max();
  const double tiny = std::numeric_limits<double>::denorm_min();
  const std::vector<Points> curves{
      {{0, 1}, {10, 3}, {11, -4}},     {{0, -huge}, {1, huge}},        {{0, huge}, {tiny, -huge}},
      {{-huge, 1}, {0, 2}, {huge, 3}}, {{-huge, -huge}, {huge, huge}}, {{5, 1}, {5, 2}, {5, 3}},
      {{0, 1}, {5, 2}, {5, 2}},        {{-huge, 1}, {0, 2}},           {{0, 1}, {1e-9, 1}}};
  for (const Points& points : curves) {
    for (const Tangent type : kAllTypes) {
      for (const Infinity infinity : {Infinity::kConstant, Infinity::kLinear, Infinity::kCycle,
                                      Infinity::kCycleOffset, Infinity::kOscillate}) {
        SCOPED_TRACE(testing::Message() << "key type " << static_cast<int>(type) << ", infinity "
                                        << static_cast<int>(infinity));
        const Curve curve = Make(type, points, infinity);
        for (const double time : {-huge, -1e300, -1e18, -tiny, 0.0, tiny, 0.3, 5.0, 1e300, huge}) {
          EXPECT_FALSE(std::isnan(curve.ValueAt(time))) << time;
        }
        curve.ValueAt(std::nan(""));  // only has to end
        curve.ValueAt(std::numeric_limits<double>::infinity());
      }
    }
  }
}

TEST(CurveTest, ValuesThatAreNotFiniteSpoilTheirOwnSegmentsOnly) {
  const Curve curve = Make(Tangent::kLinear, {{0, 1}, {1, 2}, {2, HUGE_VAL}, {3, 4}, {4, 5}});
  EXPECT_EQ(curve.ValueAt(0.5), 1.5);
  EXPECT_EQ(curve.ValueAt(1.5), HUGE_VAL);
  EXPECT_EQ(curve.ValueAt(3.5), 4.5);
}

TEST(CurveTest, SetKeyKeepsOrderAndTangents) {
  Curve curve;
  std::vector<double> times;
  for (const double time : {5.0, -1.0, 9.0, 5.5, 0.0, 5.0})
    curve.SetKey(time, time * 2);
  for (const CurveKey& key : curve.keys) {
    times.push_back(key.time);
    EXPECT_EQ(key.value, key.time * 2);
    EXPECT_EQ(key.inType, Tangent::kAuto);
    EXPECT_EQ(key.outType, Tangent::kAuto);
  }
  EXPECT_EQ(times, (std::vector<double>{-1, 0, 5, 5.5, 9}));
  curve.keys[0].outType = Tangent::kStep;
  curve.SetKey(-1, 77);
  ASSERT_EQ(curve.keys.size(), 5u);
  EXPECT_EQ(curve.keys[0].value, 77);
  EXPECT_EQ(curve.keys[0].outType, Tangent::kStep);
}

}  // namespace
}  // namespace lipvane::standalone
