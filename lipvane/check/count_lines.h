#pragma once

#include <string>
#include <string_view>

#include "lipvane/check/data_line.h"
#include "lipvane/check/finding.h"

/// Lines that the readers take a count from.
namespace lipvane::check {

/// As the readers take it, none for less.
int CountOn(std::string_view line);

/// Whether it begins with a number at all.
bool HasCount(std::string_view line);
bool IsNegativeCount(std::string_view line);

/// The count for messages: "5", "-3 (read as 0)".
std::string ShownCount(std::string_view line);

/// Adds what is wrong with the text of a count. `what` is the count's name, `hint` follows when
/// there is no count. False when there is none.
bool CheckCountLine(const DataLine& line, const std::string& what, const std::string& hint,
                    Recorder& recorder);

}  // namespace lipvane::check
