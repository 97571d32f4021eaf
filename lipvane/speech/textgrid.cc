#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "lipvane/speech/textgrid_tokens.h"
#include "lipvane/speech/timing_forms.h"
#include "lipvane/speech/words.h"
#include "lipvane/text/lists.h"
#include "lipvane/text/printable.h"

namespace lipvane::speech {
namespace {

constexpr std::string_view kTextFile = "ooTextFile";
constexpr std::string_view kBinaryFile = "ooBinaryFile";
constexpr std::string_view kChronological = "\"Praat chronological TextGrid";

struct Tier {
  std::string name;
  bool hasIntervals = true;  // false: it has points
  std::vector<TimedLabel> labels;
  double end = 0.0;
};

class Reader {
 public:
  Reader(std::string_view text, ReadProblem& problem) : tokens_(text), problem_(problem) {}

  bool Read(std::vector<Tier>& tiers) {
    std::string type;
    std::string objectClass;
    double unused = 0.0;
    int count = 0;
    if (!Text("the type of file", type) || !Text("the class of object", objectClass)) return false;
    if (objectClass != "TextGrid") {
      return Refuse("it holds a " + text::QuotedLine(objectClass) + ", not a \"TextGrid\"");
    }
    if (!Time("the time that the grid starts at", unused) ||
        !Time("the time that the grid ends at", unused) ||
        !Expect(TextGridTokens::Kind::kFlag, "<exists>")) {
      return false;
    }
    if (tokens_.Text() != "<exists>") return true;
    if (!Count("the number of tiers", count)) return false;
    for (int i = 0; i < count; ++i) {
      if (!ReadTier(tiers.emplace_back())) return false;
    }
    tokens_.Advance();
    if (tokens_.KindOf() == TextGridTokens::Kind::kEnd) return true;
    return Refuse("the file goes on after its last tier: a count before is too small");
  }

 private:
  bool ReadTier(Tier& tier) {
    std::string tierClass;
    double unused = 0.0;
    int count = 0;
    if (!Text("the class of a tier", tierClass)) return false;
    tier.hasIntervals = tierClass == "IntervalTier";
    if (!tier.hasIntervals && tierClass != "TextTier") {
      return Refuse("a tier is an \"IntervalTier\" or a \"TextTier\", not a " +
                    text::QuotedLine(tierClass));
    }
    if (!Text("the name of a tier", tier.name) || !Time("the time that a tier starts at", unused) ||
        !Time("the time that a tier ends at", tier.end) ||
        !Count("the number of a tier's intervals", count)) {
      return false;
    }
    tier.name = Trim(tier.name);
    for (int i = 0; i < count; ++i) {
      TimedLabel label;
      if (!Time("the time of an interval", label.start)) return false;
      if (tier.hasIntervals && !Time("the time that an interval ends at", label.end)) return false;
      if (!Text("the text of an interval", label.text)) return false;
      label.line = tokens_.Line();
      if (tier.hasIntervals) tier.labels.push_back(std::move(label));
    }
    return true;
  }

  bool Text(const char* what, std::string& text) {
    if (!Expect(TextGridTokens::Kind::kText, what)) return false;
    if (tokens_.IsCut()) {
      return Refuse("the file ends within the text that begins here");
    }
    text = tokens_.Text();
    return true;
  }

  bool Time(const char* what, double& time) {
    if (!Expect(TextGridTokens::Kind::kNumber, what)) return false;
    time = tokens_.Value();
    if (std::isfinite(time)) return true;
    return Refuse(std::string(what) + " is not finite");
  }

  bool Count(const char* what, int& count) {
    if (!Expect(TextGridTokens::Kind::kNumber, what)) return false;
    const double value = tokens_.Value();
    if (value >= 0.0 && value <= 1e9 && value == std::floor(value)) {
      count = static_cast<int>(value);
      return true;
    }
    return Refuse(std::string(what) + " is no count");
  }

  bool Expect(TextGridTokens::Kind kind, const char* what) {
    tokens_.Advance();
    if (tokens_.KindOf() == kind) return true;
    const bool isEnd = tokens_.KindOf() == TextGridTokens::Kind::kEnd;
    return Refuse((isEnd ? "the file ends where " : "something else stands where ") +
                  std::string(what) + " is expected");
  }

  bool Refuse(std::string reason) {
    return speech::Refuse(problem_, tokens_.Line(), std::move(reason));
  }

  TextGridTokens tokens_;
  ReadProblem& problem_;
};

/// In any case; the end is in small letters.
bool EndsIn(std::string_view end, std::string_view name) {
  const auto isLetter = [](char small, char c) { return c == small || c == small - 'a' + 'A'; };
  return name.size() >= end.size() && std::equal(end.rbegin(), end.rend(), name.rbegin(), isLetter);
}

bool EndsInPhones(std::string_view name) {
  return EndsIn("phones", name);
}

/// Of tools that call it otherwise, perhaps behind the speaker's name. "ORT-MAU" is no such tier.
bool IsCalledPhone(std::string_view name) {
  const std::string_view last = TakeLastWord(name);
  return (last.size() == 5 && EndsIn("phone", last)) || (last.size() == 3 && EndsIn("mau", last));
}

/// Why none of the tiers is meant, or several are.
std::string NotOne(const std::vector<Tier>& tiers, const std::vector<const Tier*>& meant,
                   const std::string& wanted) {
  if (tiers.empty()) return "it has no tiers";
  std::vector<std::string> names;
  names.reserve(tiers.size());
  for (const Tier& tier : tiers)
    names.push_back(text::QuotedLine(tier.name) + (tier.hasIntervals ? "" : " (points)"));
  const std::string found = "; its tiers are " + text::Listed(names);
  if (meant.empty() && wanted.empty()) {
    return "no tier of intervals has a name that ends in \"phones\", \"phone\" or \"MAU\"" + found +
           ". Where one of them holds phones, name it with --tier; words alone do not tell how the "
           "mouth moves: an aligner makes phones of them";
  }
  if (meant.empty()) return "there is no tier " + text::QuotedLine(wanted) + found;
  if (meant.size() == 1) {
    return "the tier " + text::QuotedLine(wanted) + " has points, not intervals" + found;
  }
  if (meant[0]->name == meant[1]->name) {
    return "there are " + std::to_string(meant.size()) + " tiers " +
           text::QuotedLine(meant[0]->name) + ": give each a name of its own" + found;
  }
  return "there are " + std::to_string(meant.size()) +
         " tiers of phones: name the one to speak with --tier" + found;
}

std::vector<const Tier*> Meant(const std::vector<Tier>& tiers, const std::string& wanted) {
  const auto matching = [&](const auto& isMeant) {
    std::vector<const Tier*> meant;
    for (const Tier& tier : tiers) {
      if (isMeant(tier)) meant.push_back(&tier);
    }
    return meant;
  };
  if (!wanted.empty()) return matching([&](const Tier& tier) { return tier.name == wanted; });
  auto phones =
      matching([](const Tier& tier) { return tier.hasIntervals && EndsInPhones(tier.name); });
  if (!phones.empty()) return phones;
  return matching([](const Tier& tier) { return tier.hasIntervals && IsCalledPhone(tier.name); });
}

/// The tier to speak, or null with the problem set.
const Tier* Choose(const std::vector<Tier>& tiers, const std::string& wanted,
                   ReadProblem& problem) {
  const auto meant = Meant(tiers, wanted);
  if (meant.size() == 1 && meant[0]->hasIntervals) return meant[0];
  Refuse(problem, 0, NotOne(tiers, meant, wanted));
  return nullptr;
}

bool Recognises(std::string_view text) {
  const std::string_view start = text.substr(0, 100);
  return start.find(kTextFile) != std::string_view::npos ||
         start.find(kBinaryFile) != std::string_view::npos ||
         start.find(kChronological) != std::string_view::npos;
}

bool Read(std::string_view text, const TimingOptions& options, Timing& timing,
          ReadProblem& problem) {
  const std::string_view start = text.substr(0, 100);
  if (start.find(kTextFile) == std::string_view::npos) {
    return Refuse(problem, 1,
                  "it is a TextGrid in a form that is not read; save it as a text file or as a "
                  "short text file in Praat");
  }
  std::vector<Tier> tiers;
  if (!Reader(text, problem).Read(tiers)) return false;
  const Tier* const tier = Choose(tiers, options.tier, problem);
  if (tier == nullptr) return false;
  timing.tier = tier->name;
  if (const auto phones = Meant(tiers, {}); phones.size() == 1) timing.phoneTier = phones[0]->name;
  timing.labels = tier->labels;
  timing.end = tier->end;
  return true;
}

}  // namespace

const TimingForm kTextGrid = {kTextGridFormat, true, false, Recognises, Read};

}  // namespace lipvane::speech
