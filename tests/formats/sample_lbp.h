#pragma once

#include <string>
#include <utility>
#include <vector>

namespace lipvane::test {

/// A small complete bone pose file: two speech targets (Eat, Ox), 43 phonemes (P0, P1 ...; Pn
/// weighs n/100 for Eat and 0.5 for Ox), the bones jaw and head, two poses. Bone b of pose p stands
/// at (p, b, 0.5), turned to the components 1, 2, 3, 4.
std::string SampleLbp();

/// The same with texts replaced, each of which must occur exactly once.
std::string SampleLbp(const std::vector<std::pair<std::string, std::string>>& replacements);

}  // namespace lipvane::test
