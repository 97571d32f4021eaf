#include "lipvane/check/ltf_check.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <optional>
#include <unordered_map>

#include "lipvane/check/data_line.h"
#include "lipvane/check/words.h"
#include "lipvane/engine/animation.h"
#include "lipvane/formats/data_lines.h"
#include "lipvane/formats/ltf.h"
#include "lipvane/text/numbers.h"

namespace lipvane::check {
namespace {

std::string_view FirstToken(const DataLine& line) {
  return TokenCursor(line.text, " ").Next();
}

bool HoldsWholeTime(double time) {
  using Limits = std::numeric_limits<int>;
  return time == std::trunc(time) && time >= Limits::min() && time <= Limits::max();
}

/// As the reader takes it.
int WholeTime(double time) {
  using Limits = std::numeric_limits<int>;
  return static_cast<int>(std::clamp<double>(time, Limits::min(), Limits::max()));
}

/// Goes through the lines as the reader does and stops where it stops.
class LtfCheck {
 public:
  LtfCheck(std::string_view text, const Vocabulary& vocabulary, Recorder& recorder)
      : text_(text), lines_(text), vocabulary_(vocabulary), recorder_(recorder) {}

  void Run() {
    if (CheckFile()) {
      if (Next()) {
        recorder_.Add(line_.number, rule::kUnreadLines,
                      "the file goes on after its last track: this is not read");
      }
    }
    TAnimation animation;
    ReadProblem problem;
    if (ReadLtfText(text_, animation, problem)) return;
    recorder_.Add(static_cast<std::size_t>(std::max(problem.line, 1)), rule::kUnreadable,
                  problem.reason);
  }

 private:
  bool CheckFile() {
    return Next() && FirstToken(line_) == "LTF" && CheckVersion() && SkipHeader() &&
           CheckSpeechTracks() && CheckExpressionTracks();
  }
  bool Next();
  bool NextCount(const char* what, int& count);
  bool CheckVersion();
  bool SkipHeader();
  bool CheckSpeechTracks();
  bool CheckExpressionTracks();
  void CheckSpeechName(int track);
  /// What follows the name, up to the closing brace.
  bool CheckKeys();
  bool CheckKeyLine(int first, int count, int ofAll);
  void CheckKey(int number, std::string_view time, bool isLast);
  void CheckValue(int number, std::string_view value, std::size_t place);

  std::string_view text_;
  DataLineReader lines_;
  const Vocabulary& vocabulary_;
  Recorder& recorder_;
  DataLine line_;
  std::string track_;  // its name in quotes
  std::optional<int> timeBefore_;
  std::vector<std::string_view> words_;
};

bool LtfCheck::Next() {
  if (!lines_.Next(line_.text)) return false;
  line_.number = lines_.LineNumber();
  return true;
}

bool LtfCheck::NextCount(const char* what, int& count) {
  if (!Next()) return false;
  count = text::IntegerPrefix(FirstToken(line_));
  if (!IsPlainCount(line_.text)) {
    recorder_.Add(line_.number, rule::kCountText,
                  std::string(what) + ", " + Quoted(line_.text) +
                      ", is no plain whole number and read as " + std::to_string(count));
  }
  return true;
}

bool LtfCheck::CheckVersion() {
  return Next() && text::RealPrefix(FirstToken(line_)) == kLtfVersion;
}

bool LtfCheck::SkipHeader() {
  int count = 0;
  if (!NextCount("the number of header lines", count)) return false;
  for (int i = 0; i < count; ++i) {
    if (!Next()) return false;
  }
  return true;
}

bool LtfCheck::CheckSpeechTracks() {
  int count = 0;
  if (!NextCount("the number of speech target tracks", count)) return false;
  std::unordered_map<std::string_view, std::size_t> places;
  for (std::size_t i = 0; i < vocabulary_.speechTargets.size(); ++i)
    places.try_emplace(vocabulary_.speechTargets[i], i);
  for (int i = 0; i < count; ++i) {
    if (!Next() || FirstToken(line_) != "{" || !Next()) return false;
    track_ = Quoted(line_.text);
    const auto place = static_cast<std::size_t>(i);
    const auto found = places.find(line_.text);
    if (found == places.end()) {
      recorder_.Add(line_.number, rule::kUnknownTrack,
                    "speech track " + track_ + " bears the name of no speech target");
    } else if (place >= vocabulary_.speechTargets.size() ||
               line_.text != vocabulary_.speechTargets[place]) {
      recorder_.Add(line_.number, rule::kTrackOrder,
                    "speech track " + track_ + " is number " + std::to_string(place + 1) +
                        ", the speech target number " + std::to_string(found->second + 1) +
                        ": tracks go by their place, not by their names");
    }
    if (!CheckKeys()) return false;
  }
  return true;
}

bool LtfCheck::CheckExpressionTracks() {
  int count = 0;
  if (!NextCount("the number of expression tracks", count)) return false;
  const auto& known = vocabulary_.expressions;
  std::unordered_map<std::string_view, std::size_t> seen;
  for (int i = 0; i < count; ++i) {
    if (!Next() || FirstToken(line_) != "{" || !Next()) return false;
    track_ = Quoted(line_.text);
    if (std::find(known.begin(), known.end(), line_.text) == known.end()) {
      recorder_.Add(line_.number, rule::kUnknownTrack,
                    "expression track " + track_ + " bears the name of no expression");
    }
    const auto [first, isNew] = seen.emplace(line_.text, line_.number);
    if (!isNew) {
      recorder_.Add(line_.number, rule::kDuplicateTrack,
                    "expression track " + track_ + " stands on line " +
                        std::to_string(first->second) + " already: this one is never used");
    }
    if (!CheckKeys()) return false;
  }
  return true;
}

bool LtfCheck::CheckKeys() {
  int count = 0;
  if (!NextCount("the number of keys", count)) return false;
  timeBefore_.reset();
  for (int done = 0; done < count;) {
    const int room = done == 0 ? kKeysOnFirstLine : kKeysOnLaterLines;
    const int here = std::min(room, count - done);
    if (!CheckKeyLine(done + 1, here, count)) return false;
    done += here;
  }
  return Next() && FirstToken(line_) == "}";
}

bool LtfCheck::CheckKeyLine(int first, int count, int ofAll) {
  if (!Next()) return false;
  const std::string where = "track " + track_;
  if (FirstToken(line_) == "}") {
    recorder_.Add(line_.number, rule::kShortKeyLine,
                  where + " has no line for its keys from " + std::to_string(first) +
                      " on: this one is taken for it");
    timeBefore_.reset();
    return true;
  }
  SplitWords(line_.text, words_);
  const auto needed = 2 * static_cast<std::size_t>(count);
  if (words_.size() != needed) {
    const bool isShort = words_.size() < needed;
    recorder_.Add(line_.number, isShort ? rule::kShortKeyLine : rule::kLongKeyLine,
                  where + " has " +
                      Counted(static_cast<long long>(words_.size()), "number", "numbers") +
                      " on this line, not the " + std::to_string(needed) + " of " +
                      Counted(count, "key", "keys") +
                      (isShort ? ": what is missing is read as 0" : ": the rest is not read"));
  }
  if (const auto before = WordsBeforeDoubledBlank(line_.text); before && *before < needed) {
    recorder_.Add(line_.number, rule::kDoubledBlank,
                  where + " has a blank too many before number " + std::to_string(*before + 1) +
                      " of this line: the rest of the line is one token, and what follows in it "
                      "is read as 0");
  }
  for (std::size_t i = 0; i < std::min(words_.size(), needed); ++i) {
    const int number = first + static_cast<int>(i / 2);
    // The last key is only what it seems when its line is whole.
    if (i % 2 == 0) CheckKey(number, words_[i], number == ofAll && words_.size() >= needed);
    CheckValue(number, words_[i], i);
  }
  return true;
}

void LtfCheck::CheckValue(int number, std::string_view value, std::size_t place) {
  if (const auto problem = NumberProblem(value)) {
    recorder_.Add(line_.number, rule::kNotANumber,
                  "the " + std::string(place % 2 == 0 ? "time" : "value") + " of key " +
                      std::to_string(number) + " of track " + track_ + ", " + *problem);
  }
}

void LtfCheck::CheckKey(int number, std::string_view time, bool isLast) {
  const std::string key = "key " + std::to_string(number) + " of track " + track_;
  const double value = text::RealPrefix(time);
  if (NumberProblem(time)) {  // said elsewhere
    timeBefore_.reset();
    return;
  }
  const int whole = WholeTime(value);
  if (!HoldsWholeTime(value)) {
    recorder_.Add(line_.number, rule::kKeyTime,
                  "the time of " + key + ", " + Quoted(time) +
                      ", is no whole number of 32 bits and read as " + std::to_string(whole));
  }
  if (timeBefore_ && whole < *timeBefore_) {
    recorder_.Add(line_.number, rule::kKeyOrder,
                  key + " is at " + std::to_string(whole) + ", before the one before it at " +
                      std::to_string(*timeBefore_));
  } else if (timeBefore_ && whole == *timeBefore_) {
    recorder_.Add(line_.number, isLast ? rule::kEqualLastTimes : rule::kEqualTimes,
                  key + " is at " + std::to_string(whole) + " like the one before it" +
                      (isLast ? ": as the last two keys they give no number there"
                              : ": the track jumps there"));
  }
  timeBefore_ = whole;
}

}  // namespace

void CheckLtf(const std::string& fileName, std::string_view text, const Vocabulary& vocabulary,
              std::vector<Finding>& findings) {
  const std::size_t before = findings.size();
  Recorder recorder(fileName, findings);
  LtfCheck(text, vocabulary, recorder).Run();
  SortByLine(findings, before);
}

}  // namespace lipvane::check
