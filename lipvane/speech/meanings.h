#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "lipvane/formats/phonemes.h"
#include "lipvane/speech/timing.h"

namespace lipvane::speech {

/// How strongly a sound or a mouth shape pulls each speech target: one a target.
using Weights = std::vector<float>;

/// A mouth shape with weights of its own.
struct ShapeRow {
  std::string name;
  Weights weights;
};

/// What a label makes of a mouth. Valid as long as the Meanings that it is from.
struct Meaning {
  /// Null when nothing says what the label stands for.
  const Weights* weights = nullptr;
  /// The phoneme that the label names, or stands for by the built-in tables; empty without one.
  /// When weights are null it is one that the rig's phoneme table lacks.
  std::string_view phoneme;
};

/// What the labels of one timing file stand for, for one rig. The first of these that knows the
/// label: the rig's phoneme names, exactly; ARPAbet; the phonetic alphabet; mouth shapes. But the
/// shapes of a tool's own set come first, for its files: Rhubarb's B is no phoneme B.
///
/// Silence needs no row: a rig whose table has no Sil is at rest then.
class Meanings {
 public:
  Meanings(const PhonemeMapping& mapping, ShapeSet shapes);

  /// Takes these mouth shapes in place of the built-in ones.
  void ReplaceShapes(const std::vector<ShapeRow>& rows);

  Meaning Of(const std::string& label) const;
  /// Of the empty label.
  const Weights& Silence() const;

 private:
  Meaning OfPhoneme(std::string_view name) const;
  Meaning OfShape(const std::string& label) const;

  using Table = std::unordered_map<std::string, Weights>;
  Table phonemes_;
  Table shapes_;
  ShapeSet shapeSet_;
  bool areShapesReplaced_ = false;
  Weights rest_;
};

}  // namespace lipvane::speech
