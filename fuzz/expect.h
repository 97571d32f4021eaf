#pragma once

#include <cstdlib>

/// What must hold of every input; libFuzzer keeps the input for which it does not.
inline void Expect(bool held) {
  if (!held) std::abort();
}
