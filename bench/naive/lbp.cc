#include "bench/naive/lbp.h"

#include <algorithm>
#include <charconv>

namespace lipvane::bench::naive {
namespace {

/// Passes over numbers and the blank behind each.
const char* Skipped(const char* at, int count) {
  while (count > 0) {
    count -= *at == ' ' ? 1 : 0;
    ++at;
  }
  return at;
}

/// Appends numbers and passes over the byte behind each.
const char* ReadNumbers(const char* at, const char* end, int count, std::vector<float>& numbers) {
  for (int i = 0; i < count; ++i) {
    double number = 0.0;
    at = std::from_chars(at, end, number).ptr + 1;
    numbers.push_back(static_cast<float>(number));
  }
  return at;
}

}  // namespace

void ReadBoneLines(std::string_view section, std::vector<float>& numbers) {
  const char* at = section.data();
  const char* const end = at + section.size();
  while (at < end) {
    if (*at == '\n') {
      ++at;
    } else if (*at == '/') {
      at = std::find(at, end, '\n');
    } else {
      at = ReadNumbers(Skipped(at, 16), end, 3, numbers);
      at = ReadNumbers(Skipped(at, 3), end, 4, numbers);
    }
  }
}

std::size_t WritePoses(const std::vector<std::vector<BoneNumbers>>& poses,
                       std::vector<char>& buffer) {
  constexpr std::string_view kTitle = "// Bone Pose ";
  char* at = buffer.data();
  char* const end = at + buffer.size();
  for (std::size_t p = 0; p < poses.size(); ++p) {
    at = std::copy(kTitle.begin(), kTitle.end(), at);
    at = std::to_chars(at, end, p).ptr;
    *at++ = ':';
    *at++ = ' ';
    *at++ = '\n';
    for (const BoneNumbers& bone : poses[p]) {
      for (const double number : bone) {
        at = std::to_chars(at, end, number, std::chars_format::general, 6).ptr;
        *at++ = ' ';
      }
      at[-1] = '\n';
    }
    *at++ = '\n';
  }
  return static_cast<std::size_t>(at - buffer.data());
}

}  // namespace lipvane::bench::naive
