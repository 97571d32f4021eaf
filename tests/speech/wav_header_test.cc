#include "lipvane/speech/wav_header.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "tests/support/temporary_folder.h"

namespace lipvane::speech {
namespace {

std::string Number(std::uint32_t value, std::size_t bytes) {
  std::string text;
  for (std::size_t i = 0; i < bytes; ++i)
    text += static_cast<char>(value >> 8 * i & 0xFF);
  return text;
}
std::string Chunk(const std::string& name, const std::string& content) {
  return name + Number(static_cast<std::uint32_t>(content.size()), 4) + content +
         std::string(content.size() % 2, '\0');
}
/// Two channels of 24 bits, 48000 a second.
std::string Format(unsigned format, unsigned bytesOfAll = 6, const std::string& more = "") {
  return Chunk("fmt ", Number(format, 2) + Number(2, 2) + Number(48000, 4) + Number(288000, 4) +
                           Number(bytesOfAll, 2) + Number(24, 2) + more);
}
std::string Wav(const std::string& chunks) {
  return "RIFF" + Number(static_cast<std::uint32_t>(chunks.size() + 4), 4) + "WAVE" + chunks;
}

class WavHeaderTest : public testing::Test {
 protected:
  /// Its length in samples, or why it is refused.
  std::string Read(const std::string& bytes) {
    WavHeader header;
    std::string reason;
    const bool isRead = ReadWavHeader(folder_.Make("a.wav", bytes), header, reason);
    return isRead ? std::to_string(header.samples) : reason;
  }
  test::TemporaryFolder folder_;
};

TEST_F(WavHeaderTest, FindsTheLengthInAnyOrderOfChunks) {
  const std::string data = Chunk("data", std::string(6 * 25, 'x'));
  const std::string extension =
      Number(22, 2) + Number(24, 2) + Number(3, 4) + Number(1, 2) + std::string(14, 'x');
  EXPECT_EQ(Read(Wav(Format(1) + data)), "25");
  EXPECT_EQ(Read(Wav(Chunk("odd ", "123") + data + Chunk("LIST", "") + Format(3))), "25");
  EXPECT_EQ(Read(Wav(Format(0xFFFE, 6, extension) + data)), "25");
}

TEST_F(WavHeaderTest, RefusesWhatIsNoneOrCannotBe) {
  const std::string data = Chunk("data", std::string(60, 'x'));
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"", "it is too short for a WAV file"},
      {"FORM\1\1\1\1AIFF", "it is an AIFF file; a WAV file is needed"},
      {"OggS0123456789", "it is no WAV file"},
      {Wav(data), "it does not say its format (no chunk \"fmt \")"},
      {Wav(Format(1)), "it has no sound (no chunk \"data\")"},
      {Wav(Format(1) + Chunk("data", "12345")), "it holds no sound"},
      {Wav(Format(85) + data), "its sound is compressed (format 85): save it as PCM samples"},
      {Wav(Format(1, 0) + data), "its format makes no sense: 2 channels of 24 bits in 0 bytes"},
      {Wav(Chunk("fmt ", "1234") + data), "its format is cut short"},
      {Wav(Format(0xFFFE) + data), "its format is cut short"},
      {Wav(Format(1) + "data" + Number(0xFFFFFFFF, 4) + "xx"),
       "its chunk \"data\" says 4294967295 bytes where 2 are left"},
      {Wav("junk" + Number(0xFFFFFFFF, 4) + Format(1) + data),
       "it does not say its format (no chunk \"fmt \")"}};
  for (const auto& [bytes, reason] : cases)
    EXPECT_EQ(Read(bytes), reason);
  const std::string whole = Wav(Format(1) + data);
  for (std::size_t i = 0; i < whole.size(); ++i)
    EXPECT_NE(Read(whole.substr(0, i)), "10") << i;
}

}  // namespace
}  // namespace lipvane::speech
