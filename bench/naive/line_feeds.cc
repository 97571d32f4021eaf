#include "bench/naive/line_feeds.h"

#include <cstdio>
#include <cstring>
#include <memory>
#include <vector>

namespace lipvane::bench::naive {

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
