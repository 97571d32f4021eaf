#pragma once

#include <functional>
#include <iosfwd>
#include <string>

namespace lipvane::cli {

/// The name that stands for standard output.
inline constexpr char kStandardOutput[] = "-";

/// Whether a result could be put there: tells before the work rather than after it that the folder
/// is missing. True for no name and for standard output.
bool FolderExists(const std::string& fileName);

/// Whether a result of the one name would replace the file of the other. Standard output and
/// devices replace nothing.
bool TakesPlaceOf(const std::string& output, const std::string& other);

/// Writes a file whole or not at all; "-" is standard output. False, after saying so, when it could
/// not be written.
bool WriteOutput(const std::string& fileName, const std::function<void(std::ostream&)>& write);

}  // namespace lipvane::cli
