#include <cctype>
#include <iterator>
#include <sstream>

#include "tests/cli/cli_test.h"

namespace lipvane::test {
namespace {

class PlotTest : public CliTest {
 protected:
  std::string Plot(const Arguments& more = {}) {
    const ProcessResult result = Lipvane({"plot", ltf_}, more);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    ExpectWellFormed(result.out);
    return result.out;
  }

  /// Every tag that is opened is closed, in order.
  static void ExpectWellFormed(const std::string& svg) {
    Arguments open;
    for (std::size_t i = svg.find('<'); i != std::string::npos; i = svg.find('<', i + 1)) {
      const std::size_t end = svg.find('>', i);
      ASSERT_NE(end, std::string::npos);
      const std::string tag = svg.substr(i + 1, end - i - 1);
      const std::string name = tag.substr(0, tag.find(' '));
      if (name[0] == '/') {
        ASSERT_FALSE(open.empty());
        EXPECT_EQ(open.back(), name.substr(1));
        open.pop_back();
      } else if (tag.back() != '/') {
        open.push_back(name);
      }
    }
    EXPECT_TRUE(open.empty());
  }

  /// An attribute of the text element that says this; -1 when there is none.
  static double OfText(const std::string& svg, const std::string& text, const std::string& name) {
    const std::size_t end = svg.find(">" + text + "</text>");
    if (end == std::string::npos) return -1.0;
    const std::size_t begin = svg.find(" " + name + "=\"", svg.rfind('<', end));
    return std::stod(svg.substr(begin + name.size() + 3));
  }

  /// The numbers of the n-th curve's path.
  static std::vector<double> Curve(const std::string& svg, int n) {
    std::size_t at = 0;
    for (int i = 0; i <= n; ++i)
      at = svg.find("<path fill=\"#", at) + 1;
    at = svg.find(" d=\"", at) + 4;
    std::string path = svg.substr(at, svg.find('"', at) - at);
    for (char& c : path)
      c = std::isalpha(static_cast<unsigned char>(c)) != 0 ? ' ' : c;
    std::istringstream numbers(path);
    return {std::istream_iterator<double>(numbers), {}};
  }

  std::string ltf_ = folder_.Make("line.ltf",
                                  "LTF\n1\n0\n3\n{\nEat\n2\n0 0 1500 1\n}\n"
                                  "{\n<a> & \"b\" \xff\x01\xc3\xa9\xed\xa0\x80\xef\xbf\xbf\n0\n}\n"
                                  "{\nLow\n2\n0 0 300 -2\n}\n"
                                  "1\n{\nBlink_Left\n1\n0 1\n}\n");
  std::string table_ = folder_.Make("line.txt", "0 0.6 HH\n0.7 0.701 K\n0.9 2.4 <OW1>\n");
};

TEST_F(PlotTest, DrawsARowATrackOnOneAxis) {
  const std::string svg = Plot();
  EXPECT_TRUE(Has(svg, "<title>line.ltf</title>"));
  EXPECT_TRUE(Has(svg, ">full height: 2</text>"));
  const double x0 = OfText(svg, "0 s", "x");
  const double x1 = OfText(svg, "1 s", "x");
  ASSERT_GE(x1 - x0, 200.0);

  const std::string none = "\xEF\xBF\xBD";
  const std::string odd =
      "&lt;a&gt; &amp; &quot;b&quot; " + none + none + "\xc3\xa9" + none + none + none + none;
  const double eat = OfText(svg, "Eat", "y");
  const double low = OfText(svg, "Low", "y");
  const double row = OfText(svg, odd, "y") - eat;
  EXPECT_GT(row, 0.0);
  EXPECT_EQ(low - eat, 2.0 * row);
  const double full = OfText(svg, "Blink_Left", "y") - low - row;  // what -2 reaches down
  const double third = 0.5 * (x1 - x0);
  const std::vector<double> curve = Curve(svg, 0);
  const std::vector<double> expected = {
      x0, eat, x0 + third, eat, x0 + 2 * third, eat - full / 2, x0 + 3 * third, eat - full / 2,
      eat};
  ASSERT_EQ(curve.size(), expected.size());
  for (std::size_t i = 0; i < curve.size(); ++i)
    EXPECT_NEAR(curve[i], expected[i], 0.03) << i;
  EXPECT_NEAR(Curve(svg, 2)[5], low + full, 0.03);
  EXPECT_EQ(OfText(svg, "3 s", "x"), -1.0);
  const std::string slow = Plot({"--ticks-per-second", "500"});
  EXPECT_NEAR(OfText(slow, "3 s", "x"), Curve(slow, 1)[2], 0.03);
}

TEST_F(PlotTest, ShowsWhatIsSpokenBelow) {
  const std::string svg = Plot({table_});
  EXPECT_EQ(Plot({"--timing", table_, "-o", "-"}), svg);
  EXPECT_EQ(Lipvane({"plot", ltf_, table_, "-o", "line.svg"}).out, "");
  EXPECT_EQ(folder_.Content("line.svg"), svg);
  const double x0 = OfText(svg, "0 s", "x");
  const double second = OfText(svg, "1 s", "x") - x0;
  EXPECT_NEAR(OfText(svg, "HH", "x"), x0 + 0.3 * second, 0.02);
  EXPECT_NEAR(OfText(svg, "&lt;OW1&gt;", "x"), x0 + 1.65 * second, 0.02);
  EXPECT_GT(OfText(svg, "HH", "y"), OfText(svg, "Blink_Left", "y"));
  EXPECT_EQ(OfText(svg, "K", "x"), -1.0) << "there is no room for it";
  EXPECT_NEAR(Curve(svg, 1)[2], x0 + 1.5 * second, 0.02);
  EXPECT_NEAR(OfText(svg, "2.4 s", "x"), x0 + 2.4 * second, 0.02) << "the axis has its last tick";
}

TEST_F(PlotTest, SaysWhatCannotBeDrawn) {
  const Refusals cases = {
      {{ltf_, table_, "--tier", "phones"},
       table_ + ": it is a table and has no tiers: leave out --tier"},
      {{ltf_, "-o", "/no/such/f.svg"}, "/no/such/f.svg: there is no folder /no/such"}};
  for (const auto& [arguments, error] : cases)
    ExpectFailure({"plot"}, error, arguments);
}

}  // namespace
}  // namespace lipvane::test
