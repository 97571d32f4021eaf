#include <algorithm>
#include <cstddef>
#include <pugixml.hpp>
#include <string>

#include "lipvane/speech/timing_forms.h"
#include "lipvane/speech/words.h"
#include "lipvane/text/numbers.h"

namespace lipvane::speech {
namespace {

/// Counts lines up to places that come in ascending order.
class LineCounter {
 public:
  explicit LineCounter(std::string_view text) : text_(text) {}

  int LineAt(std::ptrdiff_t place) {
    const auto end = std::clamp(static_cast<std::size_t>(std::max<std::ptrdiff_t>(place, 0)),
                                counted_, text_.size());
    const std::string_view part = text_.substr(counted_, end - counted_);
    line_ += static_cast<int>(std::count(part.begin(), part.end(), '\n'));
    counted_ = end;
    return line_;
  }

 private:
  std::string_view text_;
  std::size_t counted_ = 0;
  int line_ = 1;
};

bool Recognises(std::string_view text) {
  return !text.empty() && text.front() == '<';
}

bool Read(std::string_view text, const TimingOptions& /*options*/, Timing& timing,
          ReadProblem& problem) {
  LineCounter lines(text);
  pugi::xml_document document;
  const pugi::xml_parse_result result =
      document.load_buffer(text.data(), text.size(), pugi::parse_default, pugi::encoding_utf8);
  if (!result) {
    return Refuse(problem, lines.LineAt(result.offset),
                  std::string("XML: ") + result.description());
  }
  const pugi::xml_node root = document.child("rhubarbResult");
  const pugi::xml_node cues = root.child("mouthCues");
  if (!cues) return Refuse(problem, 0, "it is XML without \"mouthCues\" in a \"rhubarbResult\"");
  timing.shapes = ShapeSet::kRhubarb;
  if (const pugi::xml_node duration = root.child("metadata").child("duration")) {
    const auto seconds = text::FiniteReal(Trim(duration.child_value()));
    if (!seconds) {
      return Refuse(problem, lines.LineAt(duration.offset_debug()), "the duration is no number");
    }
    timing.end = *seconds;
  }
  for (const pugi::xml_node& cue : cues.children("mouthCue")) {
    const int line = lines.LineAt(cue.offset_debug());
    const auto start = text::FiniteReal(Trim(cue.attribute("start").value()));
    const auto end = text::FiniteReal(Trim(cue.attribute("end").value()));
    if (!start || !end) {
      return Refuse(problem, line, "a mouth cue needs the numbers \"start\" and \"end\"");
    }
    timing.labels.push_back({cue.child_value(), *start, *end, line});
  }
  return true;
}

}  // namespace

const TimingForm kRhubarbXml = {"Rhubarb XML", false, false, Recognises, Read};

}  // namespace lipvane::speech
