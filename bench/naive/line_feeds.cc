#include "bench/naive/line_feeds.h"

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <system_error>

namespace lipvane::bench::naive {

std::size_t ReadAndCountLineFeeds(const std::string& fileName) {
  struct Closer {
    void operator()(std::FILE* file) const { static_cast<void>(std::fclose(file)); }
  };
  const std::unique_ptr<std::FILE, Closer> file(std::fopen(fileName.c_str(), "rb"));
  std::error_code error;
  const auto size = static_cast<std::size_t>(std::filesystem::file_size(fileName, error));
  if (!file || error) return 0;
  const std::unique_ptr<char[]> bytes(new char[size]);  // not zeroed first, as a vector would be
  const char* const end = bytes.get() + std::fread(bytes.get(), 1, size, file.get());

  std::size_t count = 0;
  for (const char* at = bytes.get(); at < end; ++at) {
    at = static_cast<const char*>(std::memchr(at, '\n', static_cast<std::size_t>(end - at)));
    if (at == nullptr) break;
    ++count;
  }
  return count;
}

}  // namespace lipvane::bench::naive
