#include <cstddef>
#include <iterator>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include "lipvane/speech/timing_readers.h"
#include "lipvane/speech/words.h"
#include "lipvane/text/numbers.h"

namespace lipvane::speech {
namespace {

using nlohmann::json;

/// Goes through a text and counts its lines, so that what is made of it can be told where it is.
class CountingIterator {
 public:
  using iterator_category = std::input_iterator_tag;
  using value_type = char;
  using difference_type = std::ptrdiff_t;
  using pointer = const char*;
  using reference = const char&;

  CountingIterator(const char* place, int& line) : place_(place), line_(&line) {}

  reference operator*() const { return *place_; }
  CountingIterator& operator++() {
    *line_ += *place_ == '\n' ? 1 : 0;
    ++place_;
    return *this;
  }
  bool operator==(const CountingIterator& other) const { return place_ == other.place_; }
  bool operator!=(const CountingIterator& other) const { return place_ != other.place_; }

 private:
  const char* place_;
  int* line_;
};

/// A number, or a text that is one.
std::optional<double> TimeOf(const json& object, const char* name) {
  const auto member = object.find(name);
  if (member == object.end()) return std::nullopt;
  if (member->is_number()) return member->get<double>();
  if (member->is_string()) return text::FiniteReal(Trim(member->get_ref<const std::string&>()));
  return std::nullopt;
}

/// The document, and the lines that its cues begin on. Null when it is no JSON.
json Parse(std::string_view text, std::vector<int>& cueLines, ReadProblem& problem) {
  int line = 1;
  bool isInCues = false;
  const auto noteLines = [&](int depth, json::parse_event_t event, json& parsed) {
    if (event == json::parse_event_t::key && depth == 1) isInCues = parsed == "mouthCues";
    if (event == json::parse_event_t::object_start && depth == 2 && isInCues) {
      cueLines.push_back(line);
    }
    return true;
  };
  try {
    return json::parse(CountingIterator(text.data(), line),
                       CountingIterator(text.data() + text.size(), line), noteLines);
  } catch (const json::exception&) {  // whose words quote as much of the file as they like
    Refuse(problem, line, "this is no JSON, or it ends early");
    return nullptr;
  }
}

}  // namespace

bool IsRhubarbJson(std::string_view text) {
  return !text.empty() && text.front() == '{';
}

bool ReadRhubarbJson(std::string_view text, const TimingOptions& /*options*/, Timing& timing,
                     ReadProblem& problem) {
  std::vector<int> lines;
  const json document = Parse(text, lines, problem);
  if (document.is_null()) return false;
  const auto cues = document.find("mouthCues");
  if (cues == document.end() || !cues->is_array()) {
    return Refuse(problem, 0, "it is JSON without a list of \"mouthCues\"");
  }
  timing.shapes = ShapeSet::kRhubarb;
  std::size_t objects = 0;
  for (const json& cue : *cues) {
    if (!cue.is_object()) {
      return Refuse(problem, 0,
                    "number " + std::to_string(timing.labels.size() + 1) +
                        " of the \"mouthCues\" is no object");
    }
    const int line = lines[objects++];
    const auto start = TimeOf(cue, "start");
    const auto end = TimeOf(cue, "end");
    const auto value = cue.find("value");
    if (!start || !end || value == cue.end() || !value->is_string()) {
      return Refuse(problem, line,
                    "a mouth cue needs the numbers \"start\" and \"end\" and the text \"value\"");
    }
    timing.labels.push_back({value->get<std::string>(), *start, *end, line});
  }
  const auto metadata = document.find("metadata");
  if (metadata != document.end() && metadata->is_object()) {
    timing.end = TimeOf(*metadata, "duration").value_or(0.0);
  }
  return true;
}

}  // namespace lipvane::speech
