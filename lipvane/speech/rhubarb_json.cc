#include <cstddef>
#include <iterator>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <utility>

#include "lipvane/speech/timing_forms.h"
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

/// Takes what is wanted as the parser comes by it:
/// {"metadata": {"duration"}, "mouthCues": [{"start", "end", "value"}, ...]}, and passes over all
/// else.
class Cues : public json::json_sax_t {
 public:
  Cues(const int& line, Timing& timing, ReadProblem& problem)
      : line_(line), timing_(timing), problem_(problem) {}

  bool HaveBeenThere() const { return haveBeenThere_; }

  bool null() override { return Scalar({}, nullptr); }
  bool boolean(bool /*value*/) override { return Scalar({}, nullptr); }
  bool number_integer(number_integer_t value) override {
    return Scalar(static_cast<double>(value), nullptr);
  }
  bool number_unsigned(number_unsigned_t value) override {
    return Scalar(static_cast<double>(value), nullptr);
  }
  bool number_float(number_float_t value, const string_t& /*text*/) override {
    return Scalar(value, nullptr);
  }
  bool string(string_t& text) override { return Scalar(text::FiniteReal(Trim(text)), &text); }
  bool binary(binary_t& /*value*/) override { return Scalar({}, nullptr); }  // JSON has none

  bool key(string_t& name) override {
    if (depth_ == 1) part_ = name;
    if (depth_ == 2 || depth_ == 3) member_ = name;
    return true;
  }

  bool start_object(std::size_t /*size*/) override {
    if (IsForCues()) return NoList();
    ++depth_;
    if (IsCue()) {
      cue_ = {};
      cue_.line = line_;
      start_ = end_ = {};
      hasValue_ = false;
    }
    return true;
  }
  bool end_object() override {
    if (IsCue()) {
      if (!start_ || !end_ || !hasValue_) {
        return Refuse(problem_, cue_.line,
                      "a mouth cue needs the numbers \"start\" and \"end\" and the text \"value\"");
      }
      cue_.start = *start_;
      cue_.end = *end_;
      timing_.labels.push_back(std::move(cue_));
    }
    --depth_;
    return true;
  }

  bool start_array(std::size_t /*size*/) override {
    if (IsForCues()) {
      if (haveBeenThere_) return Refuse(problem_, line_, "\"mouthCues\" is there twice");
      haveBeenThere_ = isInCues_ = true;
    } else if (isInCues_ && depth_ == 2) {
      return NoCue();
    }
    ++depth_;
    return true;
  }
  bool end_array() override {
    --depth_;
    if (depth_ == 1) isInCues_ = false;
    return true;
  }

  /// The parser's own words quote as much of the file as they like.
  bool parse_error(std::size_t /*place*/, const std::string& /*token*/,
                   const json::exception& /*error*/) override {
    return Refuse(problem_, line_, "this is no JSON, or it ends early");
  }

 private:
  bool IsForCues() const { return depth_ == 1 && part_ == "mouthCues"; }
  bool IsCue() const { return isInCues_ && depth_ == 3; }

  /// Anything but an object or an array; times may be numbers or texts.
  bool Scalar(std::optional<double> number, const std::string* text) {
    if (IsForCues()) return NoList();
    if (isInCues_ && depth_ == 2) return NoCue();
    if (depth_ == 2 && part_ == "metadata" && member_ == "duration") {
      if (!number) return Refuse(problem_, line_, "the \"duration\" is no number");
      timing_.end = *number;
    }
    if (!IsCue()) return true;
    if (member_ == "start") start_ = number;
    if (member_ == "end") end_ = number;
    if (member_ == "value") {
      hasValue_ = text != nullptr;
      if (hasValue_) cue_.text = *text;
    }
    return true;
  }

  bool NoList() { return Refuse(problem_, line_, "\"mouthCues\" is no list"); }
  bool NoCue() { return Refuse(problem_, line_, "one of the \"mouthCues\" is no object"); }

  const int& line_;
  Timing& timing_;
  ReadProblem& problem_;
  int depth_ = 0;  // how many objects and arrays are open
  bool haveBeenThere_ = false;
  bool isInCues_ = false;
  std::string part_;    // the name at depth 1
  std::string member_;  // the name at depth 2 or 3
  // Of the cue at hand.
  TimedLabel cue_;
  std::optional<double> start_;
  std::optional<double> end_;
  bool hasValue_ = false;
};

bool Recognises(std::string_view text) {
  return !text.empty() && text.front() == '{';
}

bool Read(std::string_view text, const TimingOptions& /*options*/, Timing& timing,
          ReadProblem& problem) {
  int line = 1;
  timing.shapes = ShapeSet::kRhubarb;
  Cues cues(line, timing, problem);
  if (!json::sax_parse(CountingIterator(text.data(), line),
                       CountingIterator(text.data() + text.size(), line), &cues)) {
    return false;
  }
  return cues.HaveBeenThere() || Refuse(problem, 0, "it is JSON without \"mouthCues\"");
}

}  // namespace

const TimingForm kRhubarbJson = {"Rhubarb JSON", false, false, Recognises, Read};

}  // namespace lipvane::speech
