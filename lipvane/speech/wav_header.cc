#include "lipvane/speech/wav_header.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string_view>
#include <system_error>

namespace lipvane::speech {
namespace {

/// Bytes of a file, as many as are there.
template <std::size_t N>
class Bytes {
 public:
  bool Read(std::ifstream& file, std::uint64_t at) {
    file.clear();
    file.seekg(static_cast<std::streamoff>(at));
    file.read(bytes_.data(), N);
    return file.gcount() == static_cast<std::streamsize>(N);
  }
  std::string_view Text(std::size_t at, std::size_t count) const { return {&bytes_[at], count}; }
  /// Least byte first.
  std::uint32_t Number(std::size_t at, std::size_t count) const {
    std::uint32_t number = 0;
    for (std::size_t i = count; i-- > 0;)
      number = number << 8 | static_cast<unsigned char>(bytes_[at + i]);
    return number;
  }

 private:
  std::array<char, N> bytes_{};
};

struct Chunk {
  std::uint64_t begin = 0;  ///< of its content
  std::uint64_t size = 0;
};

constexpr std::uint64_t kFormatSize = 16;
constexpr std::uint64_t kExtensibleSize = 40;

/// Formats whose samples all have the same size.
bool IsOfSamples(unsigned format) {
  constexpr unsigned kIntegers = 1, kFloats = 3, kALaw = 6, kMuLaw = 7;
  return format == kIntegers || format == kFloats || format == kALaw || format == kMuLaw;
}

std::string ReadFormat(std::ifstream& file, const Chunk& chunk, WavHeader& header,
                       unsigned& bytesOfAll) {
  constexpr unsigned kExtensible = 0xFFFE;
  Bytes<kFormatSize> fields;
  if (chunk.size < kFormatSize || !fields.Read(file, chunk.begin)) return "its format is cut short";
  unsigned format = fields.Number(0, 2);
  header.channels = fields.Number(2, 2);
  header.samplesPerSecond = fields.Number(4, 4);
  bytesOfAll = fields.Number(12, 2);
  header.bitsPerSample = fields.Number(14, 2);
  if (format == kExtensible) {
    Bytes<kExtensibleSize> extension;
    if (chunk.size < kExtensibleSize || !extension.Read(file, chunk.begin))
      return "its format is cut short";
    format = extension.Number(24, 2);
  }
  if (!IsOfSamples(format)) {
    return "its sound is compressed (format " + std::to_string(format) +
           "): save it as PCM samples";
  }
  const unsigned bytes = (header.bitsPerSample + 7) / 8;
  if (header.channels == 0 || header.samplesPerSecond == 0.0 || bytes == 0 ||
      bytesOfAll != header.channels * bytes) {
    return "its format makes no sense: " + std::to_string(header.channels) + " channels of " +
           std::to_string(header.bitsPerSample) + " bits in " + std::to_string(bytesOfAll) +
           " bytes";
  }
  return {};
}

/// What is wrong with the file, or nothing.
std::string Read(std::ifstream& file, std::uint64_t fileSize, WavHeader& header) {
  Bytes<12> start;
  if (!start.Read(file, 0)) return "it is too short for a WAV file";
  if (start.Text(0, 4) == "FORM") return "it is an AIFF file; a WAV file is needed";
  if (start.Text(0, 4) != "RIFF" || start.Text(8, 4) != "WAVE") return "it is no WAV file";

  std::optional<Chunk> data;
  bool hasFormat = false;
  unsigned bytesOfAll = 0;  // of one sample of every channel
  Bytes<8> head;
  for (std::uint64_t at = 12; at + 8 <= fileSize && head.Read(file, at);) {
    const Chunk chunk{at + 8, head.Number(4, 4)};
    const std::string_view name = head.Text(0, 4);
    if (chunk.size > fileSize - chunk.begin && (name == "fmt " || name == "data")) {
      return "its chunk \"" + std::string(name) + "\" says " + std::to_string(chunk.size) +
             " bytes where " + std::to_string(fileSize - chunk.begin) + " are left";
    }
    if (name == "fmt " && !hasFormat) {
      std::string problem = ReadFormat(file, chunk, header, bytesOfAll);
      if (!problem.empty()) return problem;
      hasFormat = true;
    } else if (name == "data" && !data) {
      data = chunk;
    }
    if (hasFormat && data) break;
    at = chunk.begin + chunk.size + chunk.size % 2;  // content is padded to pairs of bytes
  }
  if (!hasFormat) return "it does not say its format (no chunk \"fmt \")";
  if (!data) return "it has no sound (no chunk \"data\")";
  header.samples = data->size / bytesOfAll;
  return header.samples > 0 ? std::string() : "it holds no sound";
}

}  // namespace

bool ReadWavHeader(const std::string& fileName, WavHeader& header, std::string& reason) {
  std::error_code error;
  // Devices and pipes have no size to hold the header against.
  const bool isFile = std::filesystem::is_regular_file(fileName, error);
  const std::uint64_t size = isFile ? std::filesystem::file_size(fileName, error) : 0;
  if (error || !isFile) {
    reason = error ? error.message() : "it is no regular file";
    return false;
  }
  std::ifstream file(fileName, std::ios::binary);
  if (!file) {
    reason = std::generic_category().message(errno);
    return false;
  }
  WavHeader read;
  reason = Read(file, size, read);
  if (!reason.empty()) return false;
  header = read;
  return true;
}

}  // namespace lipvane::speech
