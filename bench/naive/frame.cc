#include "bench/naive/frame.h"

#include <cmath>
#include <cstddef>

namespace lipvane::bench::naive {
namespace {

/// The bone of this identifier among parallel bones, or null.
const Bone* FindBone(const std::vector<int>& ids, const Pose& bones, int id) {
  for (std::size_t i = 0; i < ids.size(); ++i) {
    if (ids[i] == id) return &bones[i];
  }
  return nullptr;
}

Bone Composed(const Face& face, int id, const Bone& before) {
  const Bone* neutral = FindBone(face.rig.ids, face.rig.poses[0], id);
  const Bone base = neutral != nullptr ? *neutral : Bone{{}, {0.0F, 0.0F, 0.0F, 0.0F}};
  float sum = 0.0F;
  for (const Expression& expression : face.expressions) {
    if (FindBone(expression.rig.ids, expression.rig.blended, id) != nullptr) {
      sum = static_cast<float>(sum + expression.weight);
    }
  }
  Bone running = base;
  bool isMoved = false;
  float accumulated = 0.0F;
  for (const Expression& expression : face.expressions) {
    if (expression.weight == 0.0) continue;
    const Bone* target = FindBone(expression.rig.ids, expression.rig.blended, id);
    if (target == nullptr) continue;
    const double weight = sum > 1.0F ? expression.weight / sum : expression.weight;
    accumulated = static_cast<float>(accumulated + weight);
    AddStep(*target, base, static_cast<float>(weight), running);
    isMoved = true;
  }
  const Bone* speech = FindBone(face.rig.ids, face.rig.blended, id);
  if (accumulated < 1.0F && speech != nullptr) {
    AddStep(*speech, base, 1.0F - accumulated, running);
    isMoved = true;
  }
  return isMoved ? running : before;
}

}  // namespace

void Blend(Rig& rig, const Pose& reference, const std::vector<double>& weights) {
  rig.blended.resize(rig.ids.size());
  for (std::size_t i = 0; i < rig.ids.size(); ++i) {
    Bone sum = reference[i];
    for (std::size_t j = 0; j < rig.poses.size(); ++j) {
      AddStep(rig.poses[j][i], reference[i], static_cast<float>(weights[j]), sum);
    }
    rig.blended[i] = sum;
  }
}

double ValueAtTime(const Track& track, double time) {
  if (time < track.front().time) return track.front().value;
  if (track.back().time < time) return track.back().value;
  std::size_t i = 0;
  while (i + 2 < track.size() && !(track[i].time <= time && time < track[i + 1].time)) {
    ++i;
  }
  const double start = track[i].time;
  const double u = (time - start) / (track[i + 1].time - start);
  const double a = track[i].value;
  const double b = track[i + 1].value;
  const double value = (2 * a - 2 * b) * u * u * u + (3 * b - 3 * a) * u * u + a;
  return std::abs(value) < 4.440892098500626e-16 ? 0.0 : value;
}

void PlayFrame(Face& face, double time, Pose& out) {
  for (std::size_t i = 0; i < face.tracks.size(); ++i) {
    face.weights[i + 1] = ValueAtTime(face.tracks[i], time);
  }
  Blend(face.rig, face.rig.poses[0], face.weights);
  for (Expression& expression : face.expressions) {
    expression.weight = ValueAtTime(expression.track, time);
    if (expression.weight == 0.0) continue;
    if (expression.rig.poses.size() == 1) {
      expression.rig.blended = expression.rig.poses[0];
    } else {
      Blend(expression.rig, expression.rig.poses[0], face.weights);
    }
  }
  for (std::size_t b = 0; b < out.size(); ++b) {
    out[b] = Composed(face, face.outIds[b], out[b]);
  }
}

}  // namespace lipvane::bench::naive
