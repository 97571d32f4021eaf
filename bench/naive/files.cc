#include "bench/naive/files.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <memory>

namespace lipvane::bench::naive {
namespace {

/// The first byte behind `at` that is `wanted`, or the end.
const char* Find(const char* at, const char* end, char wanted) {
  const void* found = std::memchr(at, wanted, static_cast<std::size_t>(end - at));
  return found != nullptr ? static_cast<const char*>(found) : end;
}

constexpr bool IsNeeded(int column) {
  return (column >= 16 && column <= 18) || (column >= 22 && column <= 25);
}

void ReadBoneLine(const char* at, const char* end, std::vector<float>& numbers) {
  for (int column = 0; column < 26; ++column) {
    const char* const tokenEnd = Find(at, end, ' ');
    if (IsNeeded(column)) {
      double number = 0.0;
      std::from_chars(at, tokenEnd, number);
      numbers.push_back(static_cast<float>(number));
    }
    at = tokenEnd + 1;
  }
}

}  // namespace

void ReadBoneLines(std::string_view section, std::vector<float>& numbers) {
  const char* at = section.data();
  const char* const end = at + section.size();
  while (at < end) {
    const char* const lineEnd = Find(at, end, '\n');
    if (at < lineEnd && *at != '/') ReadBoneLine(at, lineEnd, numbers);
    at = lineEnd + 1;
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

std::size_t CountLineFeeds(const std::string& fileName) {
  struct Closer {
    void operator()(std::FILE* file) const { static_cast<void>(std::fclose(file)); }
  };
  const std::unique_ptr<std::FILE, Closer> file(std::fopen(fileName.c_str(), "rb"));
  if (!file) return 0;
  std::size_t count = 0;
  std::vector<char> piece(std::size_t{1} << 16);
  while (const std::size_t length = std::fread(piece.data(), 1, piece.size(), file.get())) {
    const char* at = piece.data();
    const char* const end = at + length;
    for (; at < end; ++at) {
      at = static_cast<const char*>(std::memchr(at, '\n', static_cast<std::size_t>(end - at)));
      if (at == nullptr) break;
      ++count;
    }
  }
  return count;
}

}  // namespace lipvane::bench::naive
