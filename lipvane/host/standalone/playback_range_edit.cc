#include "lipvane/host/standalone/playback_range_edit.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>

#include "lipvane/host/standalone/node_statements.h"
#include "lipvane/text/numbers.h"

namespace lipvane::standalone {
namespace {

constexpr std::string_view kBlanks = " \t\r\f\v";
constexpr std::size_t kNpos = std::string_view::npos;

/// The four limits, as places in the arrays below.
enum Limit : std::size_t { kFirst, kLast, kAnimationFirst, kAnimationLast, kLimitCount };
constexpr std::array<std::array<std::string_view, 2>, kLimitCount> kFlags{{
    {"-min", "-minTime"},
    {"-max", "-maxTime"},
    {"-ast", "-animationStartTime"},
    {"-aet", "-animationEndTime"},
}};

/// Where a script sets the limits. Of what it sets twice the later counts.
struct Places {
  struct Number {
    Span span;
    double value = 0.0;
  };
  std::array<std::optional<Number>, kLimitCount> limits;
  std::optional<std::size_t> end;  ///< of the last command
  bool isUnread = false;
};

/// One command of the script, by its words.
void ReadCommand(std::string_view script, const std::vector<Span>& words, Places& places) {
  const auto word = [&](std::size_t i) {
    return script.substr(words[i].begin, words[i].end - words[i].begin);
  };
  if (words.empty() || word(0) != "playbackOptions") return;
  for (std::size_t i = 1; i < words.size(); ++i) {
    if (word(i) == "-q" || word(i) == "-query") return;
  }
  places.end = words.back().end;
  for (std::size_t i = 1; i < words.size(); ++i) {
    const auto flag = std::find_if(kFlags.begin(), kFlags.end(), [&](const auto& names) {
      return std::find(names.begin(), names.end(), word(i)) != names.end();
    });
    if (flag == kFlags.end()) continue;
    const auto value = ++i < words.size() ? text::FiniteReal(word(i)) : std::nullopt;
    if (!value) {
      places.isUnread = true;
      return;
    }
    places.limits[static_cast<std::size_t>(std::distance(kFlags.begin(), flag))] = {words[i],
                                                                                    *value};
  }
}

Places Read(std::string_view script) {
  Places places;
  std::vector<Span> words;
  for (std::size_t i = 0; i < script.size();) {
    if (kBlanks.find(script[i]) != kNpos) {
      ++i;
    } else if (script[i] == ';' || script[i] == '\n') {
      // A command may go on in the next line.
      const std::size_t next = std::min(script.find_first_not_of(" \t\r\n\f\v", i), script.size());
      if (script[i] == ';' || script.substr(next, 1) != "-") {
        ReadCommand(script, words, places);
        words.clear();
      }
      ++i;
    } else {
      const std::size_t end =
          script[i] == '"' ? script.find('"', i + 1) : script.find_first_of(" \t\r\n\f\v;\"", i);
      const std::size_t stop = std::min(end, script.size() - 1) + (script[i] == '"' ? 1 : 0);
      words.push_back({i, end == kNpos ? script.size() : stop});
      i = words.back().end;
    }
  }
  ReadCommand(script, words, places);
  return places;
}

/// What is to stand in the script, and where.
std::vector<Edit> Widen(const Places& places, const FrameRange& frames, RangeChange& change) {
  std::vector<Edit> edits;
  std::string missing;
  const auto set = [&](Limit limit, double frame) {
    const std::string number = text::ExactReal(frame);
    if (places.limits[limit]) {
      edits.push_back({places.limits[limit]->span, number});
    } else {
      missing += " " + std::string(kFlags[limit][0]) + " " + number;
    }
  };
  const auto valueOf = [&](Limit limit) -> std::optional<double> {
    if (!places.limits[limit]) return std::nullopt;
    return places.limits[limit]->value;
  };
  change.oldFirst = valueOf(kFirst);
  change.oldLast = valueOf(kLast);
  const bool endsWithin = change.oldLast && *change.oldLast >= frames.last;
  // Time lines begin at 1 and animations at 0: that one frame alone is no reason for a change.
  const double allowance = endsWithin ? 1.0 : 0.0;
  if (!change.oldFirst || *change.oldFirst - allowance > frames.first) {
    change.newFirst = frames.first;
    set(kFirst, frames.first);
    if (valueOf(kAnimationFirst).value_or(frames.first) > frames.first)
      set(kAnimationFirst, frames.first);
  }
  if (!endsWithin) {
    change.newLast = frames.last;
    set(kLast, frames.last);
    if (valueOf(kAnimationLast).value_or(frames.last) < frames.last)
      set(kAnimationLast, frames.last);
  }
  if (!missing.empty()) edits.push_back({{*places.end, *places.end}, missing});
  std::sort(edits.begin(), edits.end(),
            [](const Edit& a, const Edit& b) { return a.span.begin < b.span.begin; });
  return edits;
}

std::string Edited(std::string text, const std::vector<Edit>& edits) {
  for (auto edit = edits.rbegin(); edit != edits.rend(); ++edit)
    text.replace(edit->span.begin, edit->span.end - edit->span.begin, edit->text);
  return text;
}

}  // namespace

RangeChange ExtendPlaybackRange(const SceneData& data, const FrameRange& frames,
                                std::vector<Edit>& edits) {
  RangeChange change;
  edits.clear();
  const std::vector<TextAttribute> scripts = FindTexts(data, "script", "b", "before");
  const auto script =
      std::find_if(scripts.rbegin(), scripts.rend(), [](const TextAttribute& attribute) {
        return attribute.node == "sceneConfigurationScriptNode";
      });
  if (script == scripts.rend()) return change;
  const Places places = Read(script->text);
  change.isUnread = places.isUnread;
  if (places.isUnread || !places.end) return change;
  // Plus zero, so that no frame is "-0".
  std::vector<Edit> inScript =
      Widen(places, {std::floor(frames.first) + 0.0, std::ceil(frames.last) + 0.0}, change);
  if (inScript.empty()) return change;

  const std::size_t begin = script->span.begin + 1;
  const bool isPlain = data.text.compare(begin, script->text.size(), script->text) == 0;
  if (!isPlain) {  // escapes, or a sum of texts
    edits.push_back({script->span, Style(data).Quote(Edited(script->text, inScript))});
    return change;
  }
  for (Edit& edit : inScript)
    edits.push_back({{begin + edit.span.begin, begin + edit.span.end}, std::move(edit.text)});
  return change;
}

}  // namespace lipvane::standalone
