#include <algorithm>
#include <string>
#include <string_view>

#include "lipvane/formats/data_lines.h"
#include "lipvane/formats/expected_lines.h"
#include "lipvane/formats/file_content.h"
#include "lipvane/formats/layout.h"
#include "lipvane/formats/limits.h"
#include "lipvane/formats/ltf.h"
#include "lipvane/text/numbers.h"
#include "lipvane/text/printable.h"

namespace lipvane {
namespace {

constexpr char kMagic[] = "LTF";

std::string Quoted(std::string_view text) {
  constexpr std::size_t kLongest = 40;  // a message is no place for a whole file
  return text::Quoted(text, kLongest);
}

/// One reading of one text.
class Reading {
 public:
  Reading(std::string_view content, ReadProblem& problem) : lines_(content, problem) {}

  bool Run(TAnimation& animation) {
    if (!ReadMagic() || !ReadVersion() || !SkipHeader()) return false;
    const bool complete =
        ReadTracks("the number of speech target tracks",
                   [&](const TAnimationTrack& track) { animation.AddTrack(track); }) &&
        ReadTracks("the number of expression tracks",
                   [&](const TAnimationTrack& track) { animation.AddExpressionTrack(track); });
    if (complete) animation.Digest();
    return complete;
  }

 private:
  bool ReadMagic();
  bool ReadVersion();
  bool SkipHeader();
  template <typename Add>
  bool ReadTracks(const char* expected, const Add& add);
  bool ReadTrack(TAnimationTrack& track);
  bool ReadKeys(int count, TAnimationTrack& track);
  bool ReadBrace(const char* brace, const char* expected);

  ExpectedLines lines_;
  int keysLeft_ = kMaxKeys;
};

bool Reading::ReadMagic() {
  std::string_view line;
  if (!lines_.Next("the word LTF", line)) return false;
  const std::string_view word = TokenCursor(line, " ").Next();
  return word == kMagic ||
         lines_.Refuse("it begins with " + Quoted(word) + ", not with " + Quoted(kMagic));
}

bool Reading::ReadVersion() {
  std::string_view line;
  if (!lines_.Next("the version", line)) return false;
  const std::string_view version = TokenCursor(line, " ").Next();
  return text::RealPrefix(version) == kLtfVersion ||
         lines_.Refuse("the version is " + Quoted(version) + ", not 1.0");
}

bool Reading::SkipHeader() {
  int count = 0;
  if (!lines_.NextCount("the number of header lines", count)) return false;
  std::string_view unused;
  for (int i = 0; i < count; ++i) {
    if (!lines_.Next("a header line", unused)) return false;
  }
  return true;
}

template <typename Add>
bool Reading::ReadTracks(const char* expected, const Add& add) {
  int count = 0;
  if (!lines_.NextCount(expected, count)) return false;
  for (int i = 0; i < count; ++i) {
    TAnimationTrack track;
    if (!ReadTrack(track)) return false;
    add(track);
  }
  return true;
}

bool Reading::ReadTrack(TAnimationTrack& track) {
  std::string_view name;
  int keyCount = 0;
  if (!ReadBrace("{", "the \"{\" of a track") || !lines_.Next("the name of a track", name) ||
      !lines_.NextCount("the number of a track's keys", keyCount)) {
    return false;
  }
  track.name = name;
  return ReadKeys(keyCount, track) && ReadBrace("}", "the \"}\" of a track");
}

bool Reading::ReadKeys(int count, TAnimationTrack& track) {
  if (count > keysLeft_) {
    return lines_.Refuse(std::to_string(count) + " keys make more than the " +
                         std::to_string(kMaxKeys) + " that a file may have");
  }
  keysLeft_ -= std::max(count, 0);
  TokenCursor tokens("", " ");
  for (int number = 1; number <= count; ++number) {
    // Deliberate: the keys that begin a line are 1, 26, 52, 78 ..., so the first line is a short
    // one.
    if (number == 1 || number % kKeysOnLaterLines == 0) {
      std::string_view line;
      if (!lines_.Next("a line of keys", line)) return false;
      tokens = TokenCursor(line, " ");
    }
    TAnimationKey key;
    key.time = WholeTime(text::RealPrefix(tokens.Next()));
    key.value = text::RealPrefix(tokens.Next());
    track.AddKey(key);
  }
  return true;
}

bool Reading::ReadBrace(const char* brace, const char* expected) {
  std::string_view line;
  if (!lines_.Next(expected, line)) return false;
  return TokenCursor(line, " ").Next() == brace ||
         lines_.Refuse(std::string(expected) + " is expected here, not " + Quoted(line));
}

}  // namespace

bool ReadLtfText(std::string_view text, TAnimation& animation, ReadProblem& problem) {
  return Reading(text, problem).Run(animation);
}

bool LoadLtfFile(const std::string& fileName, TAnimation& animation, ReadProblem& problem) {
  return ReadContent(fileName, problem, [&](const std::string& content) {
    return ReadLtfText(content, animation, problem);
  });
}

bool LoadLtfFile(const std::string& fileName, TAnimation& animation) {
  ReadProblem problem;
  return LoadLtfFile(fileName, animation, problem);
}

}  // namespace lipvane
