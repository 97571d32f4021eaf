#include "lipvane/host/standalone/attributes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "lipvane/host/standalone/hash_index.h"
#include "lipvane/host/standalone/units.h"

namespace lipvane::standalone {
namespace {

TEST(Attributes, KnowsLongShortAndQualifiedNames) {
  const auto first = [](const char* name) {
    const auto range = FindPlug(NodeClass::kOther, name);
    return range ? static_cast<int>(range->first) : -1;
  };
  EXPECT_EQ(first("translateY"), 1);
  EXPECT_EQ(first("ty"), 1);
  EXPECT_EQ(first("t.ty"), 1);
  EXPECT_EQ(first("translate.translateY"), 1);
  EXPECT_EQ(first("r.ty"), -1) << "no component of that compound";
  EXPECT_EQ(first("shxz"), static_cast<int>(plug::kShear) + 1);
  EXPECT_EQ(first("sptz"), static_cast<int>(plug::kScalePivotTranslate) + 2);
  EXPECT_EQ(first("vt[0:165]"), -1);
  EXPECT_EQ(FindPlug(NodeClass::kOther, "jo")->count, 3u);
  EXPECT_FALSE(FindPlug(NodeClass::kCurve, "t"));
  EXPECT_EQ(FindPlug(NodeClass::kPairBlend, "irz2")->first, plug::kInRotate2 + 2);
  EXPECT_EQ(FindPlug(NodeClass::kCharacter, "angularValues[7]")->first, plug::kAngularElement + 7);
  EXPECT_EQ(FindPlug(NodeClass::kCharacter, "lv[2:4]")->count, 3u);
}

TEST(Attributes, NamesAreReadAsTheyAreGiven) {
  for (PlugCode code = 0; code < plug::kTransformCount; ++code) {
    const auto range = FindPlug(NodeClass::kOther, TransformAttributeName(code));
    ASSERT_TRUE(range) << code;
    EXPECT_EQ(range->first, code);
    EXPECT_EQ(range->count, 1u);
  }
  EXPECT_STREQ(ChannelName(Channel::kScaleZ), "scaleZ");
}

TEST(Attributes, TakesIndicesWithinBoundsOnly) {
  EXPECT_EQ(SplitIndex("ktv[3:17]")->last, 17u);
  EXPECT_EQ(SplitIndex("ktv[3]")->last, 3u);
  EXPECT_FALSE(SplitIndex("ktv")->hasIndex);
  for (const char* bad : {"a[", "a[]", "a[1", "a[-1]", "a[2:1]", "a[1:]", "a[1].b", "a[1:2:3]",
                          "a[268435456]", "a[0:99999999999999999999]"}) {
    EXPECT_FALSE(SplitIndex(bad)) << bad;
  }
}

TEST(Units, KnowsTheHostsUnitsOfTime) {
  for (const auto& [unit, rate] :
       {std::pair{"game", 15.0}, std::pair{"film", 24.0}, std::pair{"pal", 25.0},
        std::pair{"ntsc", 30.0}, std::pair{"show", 48.0}, std::pair{"palf", 50.0},
        std::pair{"ntscf", 60.0}, std::pair{"sec", 1.0}, std::pair{"hour", 1.0 / 3600},
        std::pair{"120fps", 120.0}, std::pair{"23.976fps", 23.976}}) {
    EXPECT_EQ(FramesPerSecondOf(unit), rate) << unit;
  }
  for (const char* unit : {"", "fps", "0fps", "-5fps", "nanfps", "inffps", "12 fps", "films"}) {
    EXPECT_FALSE(FramesPerSecondOf(unit)) << unit;
  }
  EXPECT_EQ(CentimetresIn("inch"), 2.54);
  EXPECT_DOUBLE_EQ(*RadiansIn("deg") * 180, std::acos(-1.0));
}

TEST(HashIndex, KeepsWhatWasNotTakenOut) {
  HashIndex index;
  const auto is = [](std::uint32_t wanted) {
    return [wanted](std::uint32_t value) { return value == wanted; };
  };
  constexpr std::uint32_t kCount = 3000;
  // Few hashes, so that numbers share them, and many that come and go.
  for (std::uint32_t i = 0; i < kCount; ++i) {
    index.Insert(i % 97, i);
    if (i % 3 == 0) index.Replace(i % 97, i, HashIndex::kNone);
    if (i % 3 == 1) index.Replace(i % 97, i, i + kCount);
  }
  for (std::uint32_t i = 0; i < kCount; ++i) {
    EXPECT_EQ(index.Find(i % 97, is(i)), i % 3 == 2 ? i : HashIndex::kNone);
    EXPECT_EQ(index.Find(i % 97, is(i + kCount)), i % 3 == 1 ? i + kCount : HashIndex::kNone);
  }
  EXPECT_EQ(index.Find(98, [](std::uint32_t) { return true; }), HashIndex::kNone);
}

}  // namespace
}  // namespace lipvane::standalone
