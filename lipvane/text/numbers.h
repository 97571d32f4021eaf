#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Numbers as text, whatever the process's locale.
namespace lipvane::text {

/// The decimal integer that a token begins with, after white space; 0 when there is none. Values
/// beyond the range of int become its nearest end.
int IntegerPrefix(std::string_view token);

/// The decimal real number that a token begins with, after white space; 0 when there is none (so
/// for "inf", "nan" and the rest of "0x1p3" after its 0). Beyond the range of double: infinity or
/// 0.
double RealPrefix(std::string_view token);

/// The number that is the whole token, or nothing. Also knows "inf", "nan" and their spellings
/// with "#" ("-1.#INF", "1.#QNAN").
std::optional<double> WholeReal(std::string_view token);
/// The same, when it is finite.
std::optional<double> FiniteReal(std::string_view token);

/// Appends a number as C++ streams print it by default ("%g"), rounded to six digits: 0.85, 1,
/// 1e-07.
void AppendReal(std::string& out, double value);
/// The same as a text of its own.
std::string RoundedReal(double value);

/// The shortest text that reads back as exactly this value.
std::string ExactReal(double value);

/// The decimal number that a float was made from, as a double: 0.85 for 0.85F, where the float's
/// own value is 0.8500000238418579. It is the shortest one that becomes the same float again.
double DecimalOf(float value);

}  // namespace lipvane::text
