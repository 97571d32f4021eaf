#pragma once

#include <string>
#include <string_view>

namespace lipvane::speech {

/// The label with Praat's notation of phonetic symbols ("\sw", "\ct", "\:f": a backslash and two
/// characters) turned into the symbols, in UTF-8. What is no such notation stays as it is.
std::string WithoutPraatNotation(std::string_view label);

}  // namespace lipvane::speech
