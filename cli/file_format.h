#pragma once

#include <string>
#include <string_view>

namespace lipvane::cli {

enum class FileFormat { kUnknown, kScene, kLbp, kLtf, kTiming };

/// The format of a file by its content; the ending of its name helps where that says nothing.
FileFormat GuessFormat(std::string_view text, const std::string& fileName);

/// The ending of a file's name in small letters, with its dot; empty when it has none.
std::string Ending(const std::string& fileName);

}  // namespace lipvane::cli
