#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "lipvane/speech/meanings.h"
#include "lipvane/speech/timing.h"

namespace lipvane::speech {

/// A stretch of time in which a sound or a mouth shape pulls the speech targets.
struct Phone {
  const Weights* weights = nullptr;
  double start = 0.0;  ///< seconds
  double end = 0.0;    ///< seconds
};

/// A label that says nothing of the mouth.
struct UnknownLabel {
  std::string text;
  /// The phoneme that it stands for, when it is just the rig's table that lacks it.
  std::string_view phoneme;
  int line = 0;        ///< of its first place
  double start = 0.0;  ///< of its first place, in seconds
  int count = 0;
};

/// The phones of a timing's labels, one a label. Labels that nobody knows are listed, each once, in
/// order of their first places; their phones have the weights of `standIn`, which may be null.
std::vector<Phone> PhonesOf(const Timing& timing, const Meanings& meanings, const Weights* standIn,
                            std::vector<UnknownLabel>& unknown);

}  // namespace lipvane::speech
