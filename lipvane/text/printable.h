#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Bytes of files of strangers, for people to read.
namespace lipvane::text {

/// The text for a terminal: tabs become "\\t", other control characters "?"; line feeds stay.
std::string Printable(std::string_view text);
/// The same as one line: line feeds become "\\n".
std::string PrintableLine(std::string_view text);

/// The text between double quotes. What is longer than `longest` bytes is cut, with "..." at its
/// end and never within a character.
std::string Quoted(std::string_view text, std::size_t longest = std::string_view::npos);

/// A name or a label as part of a message: one printable line between double quotes, cut after 60
/// bytes.
std::string QuotedLine(std::string_view text);

}  // namespace lipvane::text
