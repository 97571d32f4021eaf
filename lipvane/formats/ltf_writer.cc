#include <cmath>
#include <ostream>
#include <string>
#include <vector>

#include "lipvane/formats/limits.h"
#include "lipvane/formats/ltf.h"
#include "lipvane/text/file.h"
#include "lipvane/text/numbers.h"

namespace lipvane {
namespace {

/// Whether a line comes back from a reader as it is.
bool IsDataLine(const std::string& line) {
  return !line.empty() && line.back() != '\r' && line.find('\n') == std::string::npos &&
         line.find("//") == std::string::npos;
}

class Writing {
 public:
  explicit Writing(std::string& reason) : reason_(reason) {}

  bool Header(const std::vector<std::string>& lines) {
    text_ = "LTF\n1.0\n\n// Header lines\n" + std::to_string(lines.size()) + "\n";
    for (const std::string& line : lines) {
      if (!IsDataLine(line)) return Refuse("header line \"" + line + "\" has no form in the file");
      text_ += line;
      text_ += '\n';
    }
    return true;
  }

  bool Tracks(const char* title, const std::vector<TAnimationTrack>& tracks) {
    text_ += title;
    text_ += std::to_string(tracks.size()) + "\n";
    for (const TAnimationTrack& track : tracks) {
      if (!IsDataLine(track.name)) {
        return Refuse("track name \"" + track.name + "\" has no form in the file");
      }
      text_ += "{\n" + track.name + "\n" + std::to_string(track.KeyCount()) + "\n";
      if (!Keys(track)) return false;
      text_ += "}\n";
    }
    return true;
  }

  std::string& Text() { return text_; }

 private:
  bool Keys(const TAnimationTrack& track) {
    const int count = track.KeyCount();
    if (count > keysLeft_) {
      return Refuse("there are more than the " + std::to_string(kMaxKeys) +
                    " keys that a file may have");
    }
    keysLeft_ -= count;
    for (int number = 1; number <= count; ++number) {
      const TAnimationKey& key = *track.GetKey(number - 1);
      if (!std::isfinite(key.value)) {
        return Refuse("track " + track.name + " has a value that is not finite at time " +
                      std::to_string(key.time));
      }
      text_ += std::to_string(key.time) + " " + text::ExactReal(key.value);
      const bool isLastOfLine = number == count || (number + 1) % kKeysOnLaterLines == 0;
      text_ += isLastOfLine ? '\n' : ' ';
    }
    return true;
  }

  bool Refuse(const std::string& reason) {
    reason_ = reason;
    return false;
  }

  std::string text_;
  std::string& reason_;
  int keysLeft_ = kMaxKeys;
};

}  // namespace

bool LtfText(const TAnimation& animation, const std::vector<std::string>& headerLines,
             std::string& text, std::string& reason) {
  Writing writing(reason);
  if (!writing.Header(headerLines) ||
      !writing.Tracks("\n// Speech target tracks\n", animation.tracks) ||
      !writing.Tracks("\n// Expression tracks\n", animation.expressionTracks)) {
    return false;
  }
  text = std::move(writing.Text());
  return true;
}

bool WriteLtfFile(const std::string& fileName, const TAnimation& animation,
                  const std::vector<std::string>& headerLines, std::string& reason) {
  std::string bytes;
  if (!LtfText(animation, headerLines, bytes, reason)) return false;
  text::OutputFile file;
  if (!file.Open(fileName, text::OutputFile::Mode::kBinary, reason)) return false;
  file.Stream() << bytes;
  return file.Commit(reason);
}

bool WriteLtfFile(const std::string& fileName, const TAnimation& animation,
                  const std::vector<std::string>& headerLines) {
  std::string reason;
  return WriteLtfFile(fileName, animation, headerLines, reason);
}

}  // namespace lipvane
