#include "cli/track_chart.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <ostream>
#include <vector>

#include "cli/svg.h"
#include "cli/track_curve.h"
#include "lipvane/text/numbers.h"

namespace lipvane::cli {
namespace {

// In pixels.
constexpr double kPerSecond = 300.0;
constexpr double kLeastWidth = 600.0;
constexpr double kMostWidth = 20000.0;  // an hour must still open
constexpr double kMargin = 16.0;
constexpr double kTextGap = 4.0;  // above a text
constexpr double kNameGap = 8.0;
constexpr double kMostNameWidth = 200.0;
constexpr double kTitleHeight = 40.0;
constexpr double kRowHeight = 28.0;  // of the largest value
constexpr double kRowGap = 10.0;
constexpr double kStripHeight = 24.0;
constexpr double kAxisHeight = 20.0;
constexpr double kLeastTickGap = 60.0;
constexpr double kLeastBoundaryGap = 4.0;

constexpr double kTitleSize = 15.0;
constexpr double kTextSize = 12.0;
constexpr double kLeastTextSize = 7.0;

// Blue and vermilion are told apart by all eyes.
constexpr char kSpeechColour[] = "#0072b2";
constexpr char kExpressionColour[] = "#d55e00";

/// The least of 1, 2, 5, 10, 20 ..., or of their fractions, that is not below `least`.
double RoundStep(double least) {
  const double decade = std::pow(10.0, std::floor(std::log10(least)));
  for (const double factor : {1.0, 2.0, 5.0}) {
    if (factor * decade >= least) return factor * decade;
  }
  return 10.0 * decade;
}

std::string Coordinate(double value) {
  std::string text;
  AppendCoordinate(text, value);
  return text;
}

struct Row {
  const TAnimationTrack* track = nullptr;
  const char* colour = "";
  double baseline = 0.0;
};

class Drawing {
 public:
  Drawing(std::ostream& out, const TrackChart& chart);

  void Write() {
    WriteFrame();
    WriteGrid();
    WriteBoundaries();
    WriteNames();
    WriteCurves();
    WriteLabels();
    out_ << "</svg>\n";
  }

 private:
  using Tracks = std::vector<TAnimationTrack>;

  bool HasStrip() const { return !chart_.timing.labels.empty(); }
  double X(double seconds) const { return left_ + seconds / span_ * width_; }
  double Right() const { return left_ + width_; }

  void AddRows(const Tracks& tracks, const char* colour);
  void WidenNames(const std::string& name);
  void WriteFrame();
  void WriteGrid();
  void WriteBoundaries();
  void WriteUpright(double x);
  void WriteNames();
  void WriteCurves();
  void WriteLabels();
  void WriteText(double x, double y, const std::string& text, double fontSize = kTextSize);

  std::ostream& out_;
  const TrackChart& chart_;
  double scale_ = 1.0;  // the value that is a row high
  std::vector<Row> rows_;
  std::string stripName_;
  double span_ = 1.0;  // of the time axis, in seconds
  // In pixels:
  double nameWidth_ = 0.0;
  double left_ = 0.0;  // of time 0
  double width_ = kLeastWidth;
  double rowsBottom_ = kTitleHeight;
  double stripBottom_ = 0.0;
  double bottom_ = 0.0;
};

Drawing::Drawing(std::ostream& out, const TrackChart& chart) : out_(out), chart_(chart) {
  const TAnimation& animation = chart.animation;
  for (const Tracks* tracks : {&animation.tracks, &animation.expressionTracks}) {
    for (const TAnimationTrack& track : *tracks) {
      const ValueRange range = RangeOf(track);
      scale_ = std::max({scale_, range.largest, -range.least});
    }
  }
  AddRows(animation.tracks, kSpeechColour);
  AddRows(animation.expressionTracks, kExpressionColour);
  stripBottom_ = rowsBottom_;
  if (HasStrip()) {
    const speech::Timing& timing = chart.timing;
    stripName_ = XmlCharacters(timing.tier.empty() ? timing.format : timing.tier);
    WidenNames(stripName_);
    stripBottom_ = rowsBottom_ + kStripHeight;
  }
  bottom_ = stripBottom_ + kAxisHeight + kMargin;
  left_ = kMargin + nameWidth_ + kNameGap;

  span_ = std::max(animation.length / chart.ticksPerSecond, chart.timing.end);
  if (span_ <= 0.0) span_ = 1.0;
  width_ = std::clamp(span_ * kPerSecond, kLeastWidth, kMostWidth);
}

void Drawing::AddRows(const Tracks& tracks, const char* colour) {
  for (const TAnimationTrack& track : tracks) {
    const double baseline = rowsBottom_ + kRowHeight;
    rows_.push_back({&track, colour, baseline});
    rowsBottom_ = baseline - RangeOf(track).least / scale_ * kRowHeight + kRowGap;
    WidenNames(XmlCharacters(track.name));
  }
}

void Drawing::WidenNames(const std::string& name) {
  nameWidth_ = std::max(nameWidth_, std::min(TextWidth(name, kTextSize), kMostNameWidth));
}

void Drawing::WriteFrame() {
  const std::string width = Coordinate(Right() + kMargin);
  const std::string height = Coordinate(bottom_);
  const std::string title = XmlCharacters(chart_.title);
  out_ << R"(<svg xmlns="http://www.w3.org/2000/svg" width=")" << width << R"(" height=")" << height
       << R"(" viewBox="0 0 )" << width << ' ' << height
       << R"(" font-family="system-ui, sans-serif" fill="#333">)"
       << "\n<title>" << XmlEscaped(title) << "</title>\n"
       << R"(<rect width="100%" height="100%" fill="#fff"/>)" << '\n';

  const std::string scale = "full height: " + text::RoundedReal(scale_);
  const double scaleWidth = TextWidth(scale, kTextSize);
  const double y = kMargin + kTitleSize / 2.0;
  WriteText(kMargin, y, FittedText(title, kTitleSize, Right() - scaleWidth - 2.0 * kMargin),
            kTitleSize);
  out_ << R"(<g text-anchor="end" fill="#666">)";
  WriteText(Right(), y, scale);
  out_ << "</g>\n";
}

void Drawing::WriteGrid() {
  // Labels of long lines have more digits than the usual gap has room for.
  const double gap =
      std::max(kLeastTickGap, TextWidth(text::RoundedReal(span_) + " s  ", kTextSize));
  const double step = RoundStep(gap / width_ * span_);
  const int last = static_cast<int>(span_ / step + 1e-6);  // 1.2 is not quite 6 times 0.2
  out_ << R"(<g text-anchor="middle" fill="#666">)" << '\n';
  for (int i = 0; i <= last; ++i)
    WriteText(X(i * step), stripBottom_ + kTextSize + kTextGap, text::RoundedReal(i * step) + " s");
  out_ << "</g>\n"
       << R"(<path stroke="#ddd" d=")";
  for (int i = 0; i <= last; ++i)
    WriteUpright(X(i * step));
  for (const Row& row : rows_) {
    out_ << 'M' << Coordinate(left_) << ' ' << Coordinate(row.baseline) << 'H'
         << Coordinate(Right());
  }
  out_ << "\"/>\n";
}

void Drawing::WriteBoundaries() {
  if (!HasStrip()) return;
  out_ << R"(<rect fill="#000" fill-opacity="0.05" x=")" << Coordinate(left_) << R"(" y=")"
       << Coordinate(rowsBottom_) << R"(" width=")" << Coordinate(width_) << R"(" height=")"
       << Coordinate(kStripHeight) << "\"/>\n";
  out_ << R"(<path stroke="#888" stroke-width="0.5" stroke-dasharray="3 2" d=")";
  double last = -std::numeric_limits<double>::infinity();
  for (const speech::TimedLabel& label : chart_.timing.labels) {
    for (const double time : {label.start, label.end}) {
      const double x = X(time);
      if (x - last < kLeastBoundaryGap) continue;  // they would be a grey mass
      last = x;
      WriteUpright(x);
    }
  }
  out_ << "\"/>\n";
}

/// A line of a path, from the rows' top through all that stands below.
void Drawing::WriteUpright(double x) {
  out_ << 'M' << Coordinate(x) << ' ' << Coordinate(kTitleHeight) << 'V'
       << Coordinate(stripBottom_);
}

void Drawing::WriteNames() {
  const auto write = [&](double y, const std::string& name) {
    WriteText(left_ - kNameGap, y, FittedText(name, kTextSize, kMostNameWidth));
  };
  out_ << R"(<g text-anchor="end">)" << '\n';
  for (const Row& row : rows_)
    write(row.baseline, XmlCharacters(row.track->name));
  if (HasStrip()) write(rowsBottom_ + kTextSize + kTextGap, stripName_);
  out_ << "</g>\n";
}

void Drawing::WriteCurves() {
  CurvePlace place;
  place.left = left_;
  place.perTick = width_ / span_ / chart_.ticksPerSecond;
  place.end = chart_.animation.length;
  place.height = kRowHeight;
  place.scale = scale_;
  out_ << R"(<g fill-opacity="0.3" stroke-linejoin="round">)" << '\n';
  for (const Row& row : rows_) {
    if (!out_) return;
    place.baseline = row.baseline;
    out_ << R"(<path fill=")" << row.colour << R"(" stroke=")" << row.colour << R"(" d=")";
    WriteCurve(out_, *row.track, place);
    out_ << "\"/>\n";
  }
  out_ << "</g>\n";
}

void Drawing::WriteLabels() {
  if (!HasStrip()) return;
  out_ << R"(<g text-anchor="middle">)" << '\n';
  for (const speech::TimedLabel& label : chart_.timing.labels) {
    const std::string text = XmlCharacters(label.text);
    const double room = X(label.end) - X(label.start) - 2.0;
    const double size = std::min(kTextSize, room / TextWidth(text, 1.0));
    if (text.empty() || size < kLeastTextSize) continue;
    WriteText(X((label.start + label.end) / 2.0), rowsBottom_ + kTextSize + kTextGap, text, size);
  }
  out_ << "</g>\n";
}

void Drawing::WriteText(double x, double y, const std::string& text, double fontSize) {
  out_ << R"(<text x=")" << Coordinate(x) << R"(" y=")" << Coordinate(y) << R"(" font-size=")"
       << Coordinate(fontSize) << "\">" << XmlEscaped(text) << "</text>\n";
}

}  // namespace

void WriteTrackChart(std::ostream& out, const TrackChart& chart) {
  Drawing(out, chart).Write();
}

}  // namespace lipvane::cli
