#pragma once

#include <functional>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace lipvane::test {

/// Who reads bytes from outside, by the name of its folder in fuzz/seeds.
struct Reader {
  std::string name;
  /// Reads a file's bytes and tells the outcome: "yes" with a digest of everything that was read,
  /// numbers bit for bit, or "no LINE REASON" (line 0: the file as a whole). An answer that breaks
  /// the reader's word, such as a refusal that leaves something behind, is std::logic_error. What
  /// readers throw otherwise, std::bad_alloc before all, passes through.
  std::function<std::string(std::string_view bytes)> answer;
};

/// Its name; GoogleTest would print its bytes, of which some were never written.
void PrintTo(const Reader& reader, std::ostream* out);

const std::vector<Reader>& Readers();

/// The files that its fuzzer starts from.
std::vector<std::string> SeedsOf(const Reader& reader);

}  // namespace lipvane::test
