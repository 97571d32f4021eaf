#pragma once

#include <string>

#include "lipvane/speech/meanings.h"
#include "lipvane/speech/timing.h"

/// What a user should know of a timing's labels as a whole.
namespace lipvane::speech {

/// Whether the mouth has nothing to do.
bool IsSilence(const Meaning& meaning);

struct UnknownWords {
  std::string text;  ///< a sentence that names each with its time; empty when there are none
  int line = 0;      ///< of the first
};

/// The words that the aligner did not know ("spn"), in which the mouth stays shut.
UnknownWords FindUnknownWords(const Timing& timing, const Meanings& meanings);

struct WordsTier {
  std::string text;  ///< a sentence that says so; empty when the labels are taken for sounds
  /// Whether the tier's name says it. Otherwise it is the look of the labels that nothing explains.
  bool isNamed = false;
};

/// Whether the labels are words rather than sounds. A word may be a label as well ("a", "uh").
WordsTier FindWordsTier(const Timing& timing, const Meanings& meanings);

}  // namespace lipvane::speech
