#include "lipvane/check/ltf_check.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <map>
#include <optional>
#include <unordered_map>
#include <utility>

#include "lipvane/check/count_lines.h"
#include "lipvane/check/data_line.h"
#include "lipvane/check/repeated.h"
#include "lipvane/check/unreadable.h"
#include "lipvane/check/words.h"
#include "lipvane/engine/animation.h"
#include "lipvane/formats/data_lines.h"
#include "lipvane/formats/layout.h"
#include "lipvane/formats/limits.h"
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

/// Goes through the lines as they were meant, which is as the reader does until something is wrong
/// with a count; then the lines tell, and what the reader makes of the rest is no news.
class LtfCheck {
 public:
  LtfCheck(std::string_view text, const Vocabulary& vocabulary, Recorder& recorder)
      : text_(text), lines_(text), vocabulary_(vocabulary), recorder_(recorder) {}

  void Run() {
    if (CheckFile()) CheckRest();
    TAnimation animation;
    ReadProblem problem;
    if (isRefusalExplained_ || ReadLtfText(text_, animation, problem)) return;
    AddUnreadable(text_, problem, recorder_);
  }

 private:
  bool CheckFile() {
    return Next() && FirstToken(line_) == "LTF" && CheckVersion() && SkipHeader() &&
           CheckSpeechTracks() && CheckExpressionTracks();
  }
  bool Next();
  bool NextIsClosing() const;
  bool SkipToClosing();
  bool CheckVersion();
  bool SkipHeader();
  bool TakeTrackCount(const char* what, bool isFirst, int& count);
  bool CheckSpeechTracks();
  void CheckSpeechName(const DataLine& name, std::size_t place);
  bool CheckExpressionTracks();
  void CheckExpressionName(const DataLine& name);
  void CheckRest();

  template <typename CheckName>
  bool CheckTrack(const CheckName& checkName);
  bool AreKeysForCount();
  /// What follows the count, up to the closing brace.
  bool CheckKeys(int count);
  void CheckKeyLine(int first, int count, int ofAll);
  void CheckKey(int number, std::string_view time, bool isLast);
  void CheckValue(int number, std::string_view value, std::size_t place);
  void KeepEqualTimes();

  void AddStructural(const Rule& rule, const std::string& text) {
    isRefusalExplained_ = true;
    recorder_.Add(line_.number, rule, text);
  }
  /// Of a rule that a track breaks again and again the first place is named.
  void AddInTrack(const Rule& rule, const std::string& text) {
    inTrack_.try_emplace(rule.id, rule, Repeated()).first->second.second.Add(line_.number, text);
  }
  bool IsInTrack(const Rule& rule) const { return inTrack_.count(rule.id) > 0; }
  void FlushTrack();

  std::string_view text_;
  DataLineReader lines_;
  const Vocabulary& vocabulary_;
  Recorder& recorder_;
  DataLine line_;
  std::size_t headerCountLine_ = 0;
  bool isHeaderCounted_ = true;
  bool isRefusalExplained_ = false;
  int keysLeft_ = kMaxKeys;
  std::unordered_map<std::string_view, std::size_t> speechPlaces_;
  std::unordered_map<std::string_view, std::size_t> expressionLines_;

  // Of the track at hand.
  std::string track_;  // its name in quotes
  std::map<std::string_view, std::pair<Rule, Repeated>> inTrack_;
  std::optional<int> timeBefore_;
  Repeated equalTimes_;  // of the run of equal times that the last key belongs to
  std::vector<std::string_view> words_;
};

bool LtfCheck::Next() {
  while (lines_.Next(line_.text)) {
    line_.number = lines_.LineNumber();
    if (!IsBlank(line_.text)) return true;
    AddStructural(rule::kBlankLine, kBlankLineText);
  }
  return false;
}

bool LtfCheck::NextIsClosing() const {
  DataLineReader lines = lines_;
  DataLine line;
  return lines.Next(line.text) && FirstToken(line) == "}";
}

/// From the line at hand on.
bool LtfCheck::SkipToClosing() {
  while (FirstToken(line_) != "}") {
    if (!Next()) return false;
  }
  return true;
}

bool LtfCheck::CheckVersion() {
  return Next() && text::RealPrefix(FirstToken(line_)) == kLtfVersion;
}

bool LtfCheck::SkipHeader() {
  if (!Next()) return false;
  headerCountLine_ = line_.number;
  isHeaderCounted_ = CheckCountLine(line_, "the number of header lines", "", recorder_);
  if (!isHeaderCounted_) isRefusalExplained_ = true;
  const int count = CountOn(line_.text);
  for (int i = 0; i < count; ++i) {
    // Blanks alone may be a header line.
    if (!lines_.Next(line_.text)) return false;
  }
  return true;
}

/// False when there is none: what follows can be anything.
bool LtfCheck::TakeTrackCount(const char* what, bool isFirst, int& count) {
  if (!Next()) return false;
  const bool isBrace = FirstToken(line_) == "{";
  std::string hint;
  if (isFirst) {
    hint = ", and the number of header lines, taken from line " + std::to_string(headerCountLine_) +
           ", may be missing or " +
           (isBrace ? "too large (comments and empty lines are none)" : "too small");
  } else if (isBrace) {
    hint = ", or the number of speech target tracks is too small";
  }
  count = CountOn(line_.text);
  if (!HasCount(line_.text)) {
    isRefusalExplained_ = true;
    // Without the number of header lines it is their first that stands here.
    if (!isHeaderCounted_) return false;
  }
  return CheckCountLine(line_, what, hint, recorder_);
}

bool LtfCheck::CheckSpeechTracks() {
  int count = 0;
  if (!TakeTrackCount("the number of speech target tracks", true, count)) return false;
  for (std::size_t i = 0; i < vocabulary_.speechTargets.size(); ++i)
    speechPlaces_.try_emplace(vocabulary_.speechTargets[i], i);
  for (int i = 0; i < count; ++i) {
    const auto place = static_cast<std::size_t>(i);
    if (!CheckTrack([&](const DataLine& name) { CheckSpeechName(name, place); })) return false;
  }
  return true;
}

void LtfCheck::CheckSpeechName(const DataLine& name, std::size_t place) {
  const auto found = speechPlaces_.find(name.text);
  if (found == speechPlaces_.end()) {
    recorder_.Add(name.number, rule::kUnknownTrack,
                  "speech track " + track_ + " bears the name of no speech target");
  } else if (place >= vocabulary_.speechTargets.size() ||
             name.text != vocabulary_.speechTargets[place]) {
    recorder_.Add(name.number, rule::kTrackOrder,
                  "speech track " + track_ + " is number " + std::to_string(place + 1) +
                      ", the speech target number " + std::to_string(found->second + 1) +
                      ": tracks go by their place, not by their names");
  }
}

bool LtfCheck::CheckExpressionTracks() {
  int count = 0;
  if (!TakeTrackCount("the number of expression tracks", false, count)) return false;
  for (int i = 0; i < count; ++i) {
    if (!CheckTrack([this](const DataLine& name) { CheckExpressionName(name); })) return false;
  }
  return true;
}

void LtfCheck::CheckExpressionName(const DataLine& name) {
  const auto& known = vocabulary_.expressions;
  if (std::find(known.begin(), known.end(), name.text) == known.end()) {
    recorder_.Add(name.number, rule::kUnknownTrack,
                  "expression track " + track_ + " bears the name of no expression");
  }
  const auto [first, isNew] = expressionLines_.emplace(name.text, name.number);
  if (!isNew) {
    recorder_.Add(name.number, rule::kDuplicateTrack,
                  "expression track " + track_ + " stands on line " +
                      std::to_string(first->second) + " already: this one is never used");
  }
}

/// What stands after the last track that is announced.
void LtfCheck::CheckRest() {
  std::size_t first = 0;
  while (lines_.Next(line_.text)) {
    if (IsBlank(line_.text)) continue;
    if (FirstToken(line_) == "{") {
      recorder_.Add(lines_.LineNumber(), rule::kUnreadTracks,
                    "a track follows the last one that is announced and is not read: the number "
                    "of expression tracks, of speech target tracks or of header lines is wrong");
      return;
    }
    if (first == 0) first = lines_.LineNumber();
  }
  if (first == 0) return;
  recorder_.Add(first, rule::kUnreadLines,
                "the file goes on after its last track: this is not read");
}

template <typename CheckName>
bool LtfCheck::CheckTrack(const CheckName& checkName) {
  if (!Next() || FirstToken(line_) != "{" || !Next()) return false;
  const DataLine name = line_;
  track_ = Quoted(name.text);
  if (!Next()) return false;
  if (AreKeysForCount()) {
    AddStructural(rule::kCountMissing,
                  "the name or the number of keys of a track is missing: this line of keys is "
                  "read as " +
                      std::to_string(CountOn(line_.text)) + " keys");
    return SkipToClosing();
  }
  checkName(name);
  if (!CheckCountLine(line_, "the number of keys of track " + track_, "", recorder_)) {
    isRefusalExplained_ = true;
    return SkipToClosing();
  }
  const bool isWhole = CheckKeys(CountOn(line_.text));
  FlushTrack();
  return isWhole;
}

/// Pairs of numbers and then the end of the track: nothing else stands for the keys.
bool LtfCheck::AreKeysForCount() {
  SplitWords(WithoutTrailingSpace(line_.text), words_);
  return words_.size() > 1 && words_.size() % 2 == 0 &&
         std::all_of(words_.begin(), words_.end(), IsNumber) && NextIsClosing();
}

void LtfCheck::FlushTrack() {
  KeepEqualTimes();
  for (const auto& [id, found] : inTrack_) {
    const auto& [rule, first] = found;
    recorder_.Add(first.line, rule,
                  first.text + (first.count > 1 ? ", and " + std::to_string(first.count - 1) +
                                                      " more in this track"
                                                : ""));
  }
  inTrack_.clear();
}

bool LtfCheck::CheckKeys(int count) {
  if (count > keysLeft_) return false;
  keysLeft_ -= std::max(count, 0);
  timeBefore_.reset();
  for (int done = 0; done < count;) {
    const int room = done == 0 ? kKeysOnFirstLine : kKeysOnLaterLines;
    const int here = std::min(room, count - done);
    if (!Next()) return false;
    if (FirstToken(line_) == "}") {
      isRefusalExplained_ = true;
      // Keys that are missing here are those that were too many on a line before.
      if (!IsInTrack(rule::kLongKeyLine)) {
        AddInTrack(rule::kShortKeyLine,
                   "track " + track_ + " ends before its key " + std::to_string(done + 1) + " of " +
                       std::to_string(count) + ": what follows is taken for keys");
      }
      return true;
    }
    CheckKeyLine(done + 1, here, count);
    done += here;
  }
  if (!Next()) return false;
  if (FirstToken(line_) == "}") return true;
  // Keys on more lines than they should be: the first of those has been named.
  if (!IsInTrack(rule::kShortKeyLine)) return false;
  isRefusalExplained_ = true;
  return SkipToClosing();
}

void LtfCheck::CheckKeyLine(int first, int count, int ofAll) {
  const std::string where = "track " + track_;
  const std::string_view line = WithoutTrailingSpace(line_.text);
  if (HasTab(line)) {
    AddInTrack(rule::kTab, where + " has a tab in a line of keys, which separates nothing");
    timeBefore_.reset();
    return;
  }
  SplitWords(line, words_);
  const auto needed = 2 * static_cast<std::size_t>(count);
  if (words_.size() != needed) {
    const bool isShort = words_.size() < needed;
    AddInTrack(isShort ? rule::kShortKeyLine : rule::kLongKeyLine,
               where + " has " +
                   Counted(static_cast<long long>(words_.size()), "number", "numbers") +
                   " on this line, not the " + std::to_string(needed) + " of " +
                   Counted(count, "key", "keys") +
                   (isShort ? ": what is missing is read as 0" : ": the rest is not read"));
  }
  if (const auto before = WordsBeforeDoubledBlank(line); before && *before < needed) {
    AddInTrack(rule::kDoubledBlank,
               where + " has a blank too many before number " + std::to_string(*before + 1) +
                   " of this line: the rest of the line is one token, and what follows in it is "
                   "read as 0");
  }
  for (std::size_t i = 0; i < std::min(words_.size(), needed); ++i) {
    const int number = first + static_cast<int>(i / 2);
    // The last key is only what it seems when its line is whole.
    if (i % 2 == 0) CheckKey(number, words_[i], number == ofAll && words_.size() >= needed);
    CheckValue(number, words_[i], i);
  }
}

void LtfCheck::CheckValue(int number, std::string_view value, std::size_t place) {
  if (const auto problem = NumberProblem(value)) {
    AddInTrack(rule::kNotANumber, "the " + std::string(place % 2 == 0 ? "time" : "value") +
                                      " of key " + std::to_string(number) + " of track " + track_ +
                                      ", " + *problem);
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
    AddInTrack(rule::kKeyTime, "the time of " + key + ", " + Quoted(time) +
                                   ", is no whole number of 32 bits and read as " +
                                   std::to_string(whole));
  }
  const bool isEqual = timeBefore_ && whole == *timeBefore_;
  if (isEqual && isLast) {
    equalTimes_ = {};  // one defect with those just before it
    AddInTrack(rule::kEqualLastTimes,
               key + " is at " + std::to_string(whole) +
                   " like the one before it: as the last two keys they give no number there");
  } else if (isEqual) {
    equalTimes_.Add(line_.number, key + " is at " + std::to_string(whole) +
                                      " like the one before it: the track jumps there");
  } else {
    KeepEqualTimes();
    if (timeBefore_ && whole < *timeBefore_) {
      AddInTrack(rule::kKeyOrder, key + " is at " + std::to_string(whole) +
                                      ", before the one before it at " +
                                      std::to_string(*timeBefore_));
    }
  }
  timeBefore_ = whole;
}

/// The run of equal times did not last to the end.
void LtfCheck::KeepEqualTimes() {
  if (equalTimes_.count > 0) {
    Repeated& all = inTrack_.try_emplace(rule::kEqualTimes.id, rule::kEqualTimes, Repeated())
                        .first->second.second;
    const std::size_t before = all.count;
    all.Add(equalTimes_.line, equalTimes_.text);
    all.count = before + equalTimes_.count;
  }
  equalTimes_ = {};
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
