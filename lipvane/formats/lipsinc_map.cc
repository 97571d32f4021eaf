#include <array>
#include <ostream>
#include <string>

#include "lipvane/formats/phonemes.h"
#include "lipvane/text/file.h"
#include "lipvane/text/real_conversion.h"

namespace lipvane {
namespace {

/// With two decimals, whatever the locale.
void AppendWeight(std::string& out, float weight) {
  std::array<char, 64> buffer{};  // the largest float has 39 digits before the point
  const auto [end, error] =
      text::RealToChars(buffer.data(), buffer.data() + buffer.size(), static_cast<double>(weight),
                        text::RealFormat::kFixed, 2);
  static_cast<void>(error);
  out.append(buffer.data(), end);
}

/// What a text-mode stream makes of line ends where these files come from.
std::string WithLineFeedsAsTextMode(const std::string& text) {
  std::string bytes;
  bytes.reserve(text.size() + text.size() / 16);
  for (const char c : text) {
    if (c == '\n') bytes += '\r';
    bytes += c;
  }
  return bytes;
}

}  // namespace

std::string PhonemeMapping::LipsincMapText(const std::string& characterName) {
  std::string text = "; " + characterName + ".map\r\n;\r\n; LIPSinc Phoneme Mapping File for " +
                     characterName + "\r\n;\r\n; ";
  for (const std::string& target : speechTargets) {
    text += target;
    text += ' ';
  }
  text += "\r\n\r\n[PhonemeToSpeechTargetMapping]\r\nNumSpeechTargets=";
  text += std::to_string(SpeechTargetCount());
  text += "\r\n";
  // Deliberate: the line end belongs to the last weight, so without speech targets there is none.
  for (int p = 0; p < PhonemeCount(); ++p) {
    text += GetPhonemeName(p);
    text += '=';
    for (int t = 0; t < SpeechTargetCount(); ++t) {
      float weight = 0.0F;
      GetWeight(t, p, weight);
      AppendWeight(text, weight);
      text += t + 1 < SpeechTargetCount() ? ", " : "\r\n";
    }
  }
  // Deliberate: the CR LF pairs above end as CR CR LF, on every platform.
  return WithLineFeedsAsTextMode(text);
}

void PhonemeMapping::WriteLipsincMap(const std::string& fileName,
                                     const std::string& characterName) {
  const std::string bytes = LipsincMapText(characterName);
  text::OutputFile file;
  std::string reason;
  if (!file.Open(fileName, text::OutputFile::Mode::kBinary, reason)) return;
  file.Stream() << bytes;
  file.Commit(reason);
}

}  // namespace lipvane
