#pragma once

#include <string>

namespace lipvane::cli {

/// Writes the phoneme table of a bone pose file as a phoneme mapping file; with
/// `force` also of one that reads as without poses. Returns the exit status.
int Map(const std::string& lbpFileName, const std::string& characterName, const std::string& output,
        bool force);

}  // namespace lipvane::cli
