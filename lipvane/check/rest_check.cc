#include "lipvane/check/rest_check.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>

#include "lipvane/check/joint_turn.h"
#include "lipvane/check/words.h"
#include "lipvane/text/numbers.h"
#include "lipvane/text/printable.h"

namespace lipvane::check {
namespace {

using standalone::Vector;

constexpr double kTurnTolerance = 1.0;  // degrees
/// Of the usual distance between two joints.
constexpr double kMoveTolerance = 0.01;
/// A file has six digits.
constexpr double kRounding = 1e-5;

/// Centimetres and degrees.
struct Place {
  JointOfBone joint;
  Vector inScene{};
  Vector inPose{};
  double turned = 0.0;
};

double Length(const Vector& v) {
  return std::hypot(std::hypot(v[0], v[1]), v[2]);
}

double Distance(const Place& place, double factor) {
  Vector between{};
  for (std::size_t i = 0; i < 3; ++i)
    between[i] = place.inScene[i] / factor - place.inPose[i];
  return Length(between);
}

double Median(std::vector<double> values) {
  if (values.empty()) return 0.0;
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

struct Units {
  double factor;
  const char* name;
};

constexpr Units kUnits[] = {
    {100.0, "metres and centimetres"},  {10.0, "centimetres and millimetres"},
    {1000.0, "metres and millimetres"}, {2.54, "inches and centimetres"},
    {25.4, "inches and millimetres"},   {30.48, "feet and centimetres"},
    {12.0, "feet and inches"},          {39.3701, "metres and inches"}};

/// The units whose lengths are in this proportion, or null.
const char* UnitsOf(double factor) {
  const double larger = std::max(factor, 1.0 / factor);
  const auto* const found = std::find_if(
      std::begin(kUnits), std::end(kUnits),
      [&](const Units& units) { return std::abs(larger / units.factor - 1.0) < kMoveTolerance; });
  return found == std::end(kUnits) ? nullptr : found->name;
}

/// What all translations of the pose are multiplied by in the scene; 1 when there is no such
/// factor.
double CommonFactor(const std::vector<Place>& places) {
  constexpr double kLeast = 1e-3;     // below it lies dust
  constexpr std::size_t kEnough = 3;  // that one joint stands elsewhere is another matter
  constexpr double kOfAll = 0.8;
  std::vector<double> ratios;
  for (const Place& place : places) {
    const double length = Length(place.inPose);
    if (length > kLeast && Length(place.inScene) > kLeast)
      ratios.push_back(Length(place.inScene) / length);
  }
  const double factor = Median(ratios);
  const bool isOne = std::abs(factor - 1.0) < 2 * kMoveTolerance;
  if (ratios.empty() || !std::isfinite(factor) || isOne) return 1.0;
  if (UnitsOf(factor) == nullptr && ratios.size() < kEnough) return 1.0;
  const auto agreeing = std::count_if(places.begin(), places.end(), [&](const Place& place) {
    const double length = Length(place.inPose);
    return length > kLeast && Distance(place, factor) < 2 * kMoveTolerance * length;
  });
  return static_cast<double>(agreeing) >= kOfAll * static_cast<double>(ratios.size()) ? factor
                                                                                      : 1.0;
}

std::vector<Place> PlacesAt(double frame, const std::vector<JointOfBone>& joints,
                            const TBonePoseInfo& rig, const standalone::Scene& scene) {
  std::vector<Place> places;
  const std::vector<TIndexedBone>& neutral = rig.poses[0].Bones();
  for (const JointOfBone& joint : joints) {
    if (joint.bone >= neutral.size()) continue;
    bool isRead = true;
    const auto values =
        scene.ValuesAt(joint.joint, frame, [&](const auto&, const auto&) { isRead = false; });
    if (!isRead) continue;
    const Vector3& t = neutral[joint.bone].translation;
    const Quaternion& r = neutral[joint.bone].rotation;
    Place place{joint, values.translate, {t.x, t.y, t.z}, 0.0};
    place.turned = AngleBetween(LocalTurn(values), {r.w, r.x, r.y, r.z});
    places.push_back(place);
  }
  return places;
}

struct Rest {
  double factor = 1.0;
  std::size_t joints = 0;
  std::size_t elsewhere = 0;
  Place farthest;
};

Rest Compare(const std::vector<Place>& places) {
  Rest rest;
  rest.factor = CommonFactor(places);
  rest.joints = places.size();
  std::vector<double> lengths;
  lengths.reserve(places.size());
  for (const Place& place : places)
    lengths.push_back(std::max(Length(place.inScene) / rest.factor, Length(place.inPose)));
  const double usual = Median(lengths);
  double worst = 0.0;
  for (const Place& place : places) {
    const double tolerance = kMoveTolerance * usual + kRounding * (1.0 + Length(place.inPose));
    const double off =
        std::max(Distance(place, rest.factor) / tolerance, place.turned / kTurnTolerance);
    if (!(off > 1.0)) continue;
    ++rest.elsewhere;
    if (off <= worst) continue;
    worst = off;
    rest.farthest = place;
  }
  return rest;
}

std::string HowFar(const Place& place, double factor) {
  const double moved = Distance(place, factor);
  std::string text;
  if (moved > kRounding * (1.0 + Length(place.inPose)))
    text = text::RoundedReal(std::round(moved * 1000) / 1000) + " cm";
  if (!(place.turned > kTurnTolerance / 10)) return text;
  return text + (text.empty() ? "" : " and ") +
         text::RoundedReal(std::round(place.turned * 10) / 10) + " degrees";
}

}  // namespace

void CheckRest(const std::vector<JointOfBone>& joints, const TBonePoseInfo& rig,
               const standalone::Scene& scene, const std::string& sceneName, Recorder& recorder) {
  if (rig.poses.empty()) return;
  Rest rest = Compare(PlacesAt(0.0, joints, rig, scene));
  if (rest.elsewhere > 0 || rest.factor != 1.0) {
    const Rest saved = Compare(PlacesAt(scene.StartTime(), joints, rig, scene));
    if (saved.elsewhere < rest.elsewhere) rest = saved;
  }
  if (rest.factor != 1.0) {
    const char* const units = UnitsOf(rest.factor);
    recorder.Add(joints.front().line, rule::kNeutralScale,
                 "translations in " + sceneName + " are " +
                     text::RoundedReal(std::round(rest.factor * 1e4) / 1e4) +
                     " times those of the neutral pose: " +
                     (units == nullptr ? std::string("the rig has another size")
                                       : std::string(units) + " are mixed up"));
  }
  if (rest.elsewhere == 0) return;
  const Place& place = rest.farthest;
  const bool isOne = rest.elsewhere == 1;
  const bool isAnother = rest.elsewhere > 1 && 2 * rest.elsewhere > rest.joints;
  recorder.Add(place.joint.line, rule::kNeutralPose,
               std::to_string(rest.elsewhere) + " of " +
                   Counted(static_cast<long long>(rest.joints), "joint", "joints") + " in " +
                   sceneName + (isOne ? " stands" : " stand") +
                   " elsewhere than in the neutral pose, " + (isOne ? "" : "most of all ") +
                   text::Quoted(scene.ShownPath(scene.FirstPath(place.joint.joint))) + " by " +
                   HowFar(place, rest.factor) +
                   (isAnother ? ": this may be another rig, or not at rest" : ""));
}

}  // namespace lipvane::check
