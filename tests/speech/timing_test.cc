#include "lipvane/speech/timing.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <map>
#include <tuple>
#include <utility>

#include "tests/speech/timing_examples.h"

namespace lipvane::speech::test {
namespace {

using namespace std::string_literals;

Timing Read(const std::string& text, const TimingOptions& options = {}) {
  Timing timing;
  ReadProblem problem;
  EXPECT_TRUE(ReadTimingText(text, options, timing, problem)) << problem.Text("file");
  return timing;
}

/// The problem as "LINE: REASON".
std::string Refusal(const std::string& text, const TimingOptions& options = {}) {
  Timing timing;
  ReadProblem problem;
  EXPECT_FALSE(ReadTimingText(text, options, timing, problem)) << text;
  return std::to_string(problem.line) + ": " + problem.reason;
}

/// "LINE label START END, ..." with times in milliseconds.
std::string Labels(const Timing& timing, bool withLines = true) {
  std::string text;
  for (const TimedLabel& label : timing.labels) {
    const auto ms = [](double s) { return std::to_string(static_cast<int>(s * 1000 + 0.5)); };
    text += (withLines ? std::to_string(label.line) + " " : "") + label.text + " " +
            ms(label.start) + " " + ms(label.end) + ", ";
  }
  return text;
}

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
  const std::size_t place = text.find(from);
  EXPECT_NE(place, std::string::npos) << from;
  return text.replace(place, from.size(), to);
}

std::string WithCrLf(const std::string& text) {
  std::string lines;
  for (const char c : text)
    lines += c == '\n' ? std::string("\r\n") : std::string(1, c);
  return lines;
}

TEST(Timing, OfTextGridsIsTheSameInEveryForm) {
  const Timing timing = Read(kLongTextGrid);
  EXPECT_EQ(timing.format, "TextGrid");
  EXPECT_EQ(timing.tier, "Ann - Phones");
  EXPECT_EQ(timing.end, 1.0);
  EXPECT_EQ(timing.shapes, ShapeSet::kNone);
  EXPECT_EQ(Labels(timing), "42  0 200, 46 S 200 550, 50 OW1 550 900, ");
  // One side of a boundary is a little off.
  EXPECT_EQ(timing.labels[2].start, timing.labels[1].end);

  const std::string labels = Labels(timing, false);
  for (const std::string& text :
       {kShortTextGrid, WithCrLf(kLongTextGrid), WithCrLf(kShortTextGrid),
        "\xEF\xBB\xBF" + kLongTextGrid, Utf16(kLongTextGrid, true), Utf16(kShortTextGrid, false),
        Replaced(kShortTextGrid, "File type = \"ooTextFile\"\nObject class = \"TextGrid\"",
                 "\"ooTextFile\" ! an old \"header\" 1\n\"TextGrid\"")}) {
    EXPECT_EQ(Labels(Read(text), false), labels);
  }
  EXPECT_EQ(Labels(Read(kShortTextGrid, {"words", {}})),
            "15  0 200, 18 a \"so\" \ncalled 200 900, ");
}

TEST(Timing, OfSeveralSpeakersNeedsTheNameOfTheTier) {
  const std::string two = Replaced(kShortTextGrid, "\"words\"", "\"Bob - PHONES\"");
  const std::string all = "\"Bob - PHONES\", \"hand phones\" (points), \"Ann - Phones\"";
  EXPECT_EQ(Labels(Read(two, {"Bob - PHONES", {}}), false), " 0 200, a \"so\" \ncalled 200 900, ");
  EXPECT_EQ(
      Refusal(two),
      "0: there are 2 tiers of phones: name the one to speak with --tier; its tiers are " + all);
  EXPECT_EQ(Refusal(two, {"Phones", {}}), "0: there is no tier \"Phones\"; its tiers are " + all);
  EXPECT_EQ(Refusal(two, {"hand phones", {}}),
            "0: the tier \"hand phones\" has points, not intervals; its tiers are " + all);
  EXPECT_EQ(Refusal(Replaced(two, "Bob - PHONES", "Ann - Phones"), {"Ann - Phones", {}}),
            "0: there are 2 tiers \"Ann - Phones\": give each a name of its own; its tiers are "
            "\"Ann - Phones\", \"hand phones\" (points), \"Ann - Phones\"");
  const std::string wordsOnly = Replaced(kShortTextGrid, "Ann - Phones", "Ann");
  EXPECT_EQ(Refusal(wordsOnly).find(
                "0: no tier of intervals has a name that ends in \"phones\", \"phone\" or \"MAU\"; "
                "its tiers are "),
            0U);
  // Other tools call it otherwise, which counts where nothing is called phones.
  for (const char* name : {"Phone", "MAU", "mau", "Ann - phone"}) {
    EXPECT_EQ(Read(Replaced(kShortTextGrid, "Ann - Phones", name)).tier, name);
    EXPECT_EQ(Read(Replaced(kShortTextGrid, "\"words\"", '"' + std::string(name) + '"')).tier,
              "Ann - Phones");
  }
  for (const char* name : {"ORT-MAU", "telephone", "MAUS"})
    EXPECT_EQ(Refusal(Replaced(kShortTextGrid, "Ann - Phones", name)).substr(0, 10), "0: no tier");
}

TEST(Timing, OfRhubarbIsTheSameInEveryForm) {
  for (const auto& [text, format, firstLine] :
       {std::tuple(kRhubarbJson, "Rhubarb JSON", 4), std::tuple(kRhubarbXml, "Rhubarb XML", 8),
        std::tuple(kRhubarbTsv, "Rhubarb TSV", 1)}) {
    const Timing timing = Read(WithCrLf(text));
    EXPECT_EQ(timing.format, format);
    EXPECT_EQ(timing.shapes, ShapeSet::kRhubarb);
    EXPECT_EQ(Labels(timing, false), "X 0 200, B 200 550, F 550 900, ") << format;
    EXPECT_EQ(timing.labels[2].line, firstLine + 2) << format;
  }
  EXPECT_EQ(Read(kRhubarbJson).end, 0.95);
  EXPECT_EQ(Read(kRhubarbXml).end, 0.95);
  // Without the shape that closes the mouth nothing says how long the last one stays.
  // What closes the mouth where X is not drawn.
  EXPECT_EQ(Labels(Read("0.5\tD\n0.7\tA\n"), false), "D 500 700, ");
  // Starts of sounds.
  EXPECT_EQ(Read("0.5\tD\n0.7\tAA\n0.9\tsil\n").shapes, ShapeSet::kNone);
}

TEST(Timing, OfFramesFollowsTheirRate) {
  // Words end with their last frame; the mouth rests between them.
  const Timing timing = Read(kPapagayo);
  EXPECT_EQ(Labels(timing), "14 etc 200 400, 15 O 400 700, 17 AI 900 1300, ");
  EXPECT_EQ(timing.tier, "Voice 1");
  EXPECT_EQ(timing.shapes, ShapeSet::kPrestonBlair);
  EXPECT_EQ(timing.end, 3.0);

  // But words may be a frame apart, or one may begin on the last frame of the other.
  for (const auto& [first, labels] :
       std::map<std::string, std::string>{{"8", "etc 200 400, O 400 800, AI 800 1300, "},
                                          {"6", "etc 200 400, O 400 600, AI 600 1300, "}}) {
    EXPECT_EQ(
        Labels(Read(Replaced(kPapagayo, "9 12 1\n\t\t\t\t9 AI", first + " 12 1\n" + first + " AI")),
               false),
        labels);
  }

  std::string two = Replaced(kPapagayo, "30\n1\n", "30\n2\n");
  two += two.substr(two.find("\tVoice 1"));
  two.replace(two.rfind("Voice 1"), 7, "Voice 2");
  EXPECT_EQ(Refusal(two),
            "0: its voices are \"Voice 1\", \"Voice 2\": name the one to speak with --tier");
  EXPECT_EQ(Read(two, {"Voice 2", {}}).labels[0].line, 26);
  EXPECT_EQ(Refusal(two, {"Voice", {}}),
            "0: there is no voice \"Voice\"; its voices are \"Voice 1\", \"Voice 2\"");

  EXPECT_EQ(Read(kMoho).shapes, ShapeSet::kPrestonBlair);
  EXPECT_EQ(Read("MohoSwitch1\n1 X\n7 B\n13 X\n").shapes, ShapeSet::kRhubarb);
  EXPECT_EQ(Labels(Read(kMoho)), "2 rest 0 250, 3 etc 250 500, 4 WQ 500 1000, 5 rest 1000 1042, ");
  EXPECT_EQ(Labels(Read(kMoho, {"", 12.0}), false),
            "rest 0 500, etc 500 1000, WQ 1000 2000, rest 2000 2083, ");
}

TEST(Timing, MayStandBehindWhiteSpace) {
  const std::string space = std::string(200, ' ') + "\r\n\n";
  for (const std::string& whole : TimingExamples()) {
    const Timing timing = Read(space + whole);
    EXPECT_EQ(timing.labels[0].line, Read(whole).labels[0].line + 2) << timing.format;
    EXPECT_EQ(Labels(timing, false), Labels(Read(whole), false));
  }
  EXPECT_EQ(Refusal(space + "0 1 A\n0 x B\n").substr(0, 6), "4: a l");
}

TEST(Timing, OfATableIsALabelALine) {
  const Timing timing = Read(kPlainTable);
  EXPECT_EQ(timing.format, "table");
  // Boundaries that are rounded apart.
  EXPECT_EQ(Labels(Read("-1e-17 .4 A\n.3995 .3997 B\n.4 .39999 C\n"), false),
            "A 0 400, B 400 400, C 400 400, ");
  // One character of four bytes.
  EXPECT_EQ(Read("\xFF\xFE" + "0\0 \0"
                              "1\0 \0\x3D\xD8\x00\xDE"s)
                .labels[0]
                .text,
            "\xF0\x9F\x98\x80");
  EXPECT_EQ(Labels(timing), "1  0 200, 2 S 200 550, 4 the \"oh\" 550 900, ");
}

TEST(Timing, IsRefusedWithLineAndReason) {
  const std::string overlap = "0 0.4 A\n0.3 0.6 B\n";
  const std::vector<std::pair<std::string, std::string>> refusals = {
      {" \n", "0: it is empty"},
      {"start end label\n0 1 A\n", "0: it is none of the timing files"},
      {"0 1 A\n1 x B\n", "2: a line needs a start and an end in seconds"},
      {"0 1,5 A\n", "1: a line needs a start and an end"},
      {"0 nan A\n", "1: a line needs a start and an end"},
      {"\"Praat chronological TextGrid text file\"\n0 1\n", "1: it is a TextGrid in a form"},
      {"0 0.4 A\n0.398 0.6 B\n", "2: \"B\" starts at 0.398 s, before the label on line 1 ends"},
      {overlap, "2: \"B\" starts at 0.3 s, before the label on line 1 ends at 0.4 s"},
      {"0.3 0.2 A\n", "1: \"A\" ends at 0.2 s, before it starts at 0.3 s"},
      {"-1 0.2 A\n", "1: \"A\" starts at -1 s, before the beginning"},
      {"0 2000001 A\n", "1: \"A\" ends at 2000001 s: no recording is longer than 2000000 s"},
      {"0 A\n1 2 B\n", "2: a line needs a start in seconds and a mouth shape"},
      {"0.5\tD\n0.7\tE\n", "2: nothing says when the last label ends"},
      {"0.5\tAA\n0.7\tX\n", "2: nothing says when the last label ends"},
      {"0.5\tD\n0.2\tX\n", "2: \"X\" starts at 0.2 s, before the label on line 1 does"},
      {"MohoSwitch1\n5 rest\n1 AI\n", "3: \"AI\" starts at 0 s, before the label on line 2 does"},
      {"MohoSwitch1\n1\n", "2: a line needs a frame"},
      {"MohoSwitch1 x\n1 A\n", "1: more than"},
      {"MohoSwitch1\n1 A\n2.5 B\n", "3: a line needs a frame and a mouth shape"},
      {"MohoSwitch1\n", "0: it holds no labels"},
      {Replaced(kPapagayo, "\n10\n", "\n0\n"), "3: this is no number of frames a second"},
      {Replaced(kPapagayo, "2 6 2", "2 6"), "13: a word is followed by"},
      {Replaced(kPapagayo, "4 O", "O"), "15: a phoneme needs a frame and a name"},
      {Replaced(kPapagayo, "so 2 6 2", "so 2 6 2000000000"), "16: a phoneme needs a frame"},
      {Replaced(kPapagayo, "so 2 6 2", "so 2 6 -2"), "13: a word is followed by"},
      {Replaced(kPapagayo, "\n30\n1\n", "\n30\n0\n"), "6: the file goes on after its last voice"},
      {"lipsync version 1\na.wav\n24\n10\n0\n", "0: it has no voices"},
      {Replaced(kRhubarbJson, "0.55, \"end\"", "0.55 \"end\""), "6: this is no JSON"},
      {Replaced(kRhubarbJson, "\"value\": \"F\"", "\"value\": 6"), "6: a mouth cue needs"},
      {Replaced(kRhubarbJson, "mouthCues", "cues"), "0: it is JSON without \"mouthCues\""},
      {Replaced(kRhubarbJson, "\"end\": 0.90", "\"END\": 0.90"), "6: a mouth cue needs"},
      {Replaced(kRhubarbJson, "0.95", "\"long\""), "2: the \"duration\" is no number"},
      {Replaced(kRhubarbJson, "0.95", "1e300"), "0: it ends at 1e+300 s: no recording is"},
      {R"({"mouthCues": {}})", "1: \"mouthCues\" is no list"},
      {R"({"mouthCues": 1})", "1: \"mouthCues\" is no list"},
      {R"({"mouthCues": [1]})", "1: one of the \"mouthCues\" is no object"},
      {"{\"mouthCues\": [\n[]]}", "2: one of the \"mouthCues\" is no object"},
      {"{\"mouthCues\": [],\n\"mouthCues\": []}", "2: \"mouthCues\" is there twice"},
      {Replaced(kRhubarbXml, "0.95", "long"), "5: the duration is no number"},
      {Replaced(kRhubarbXml, "end=\"0.55\"", ""), "9: a mouth cue needs"},
      {Replaced(kRhubarbXml, "\"0.55\">B</mouthCue", "\"0.55\">B</mouth"), "9: XML: "},
      {Replaced(kRhubarbXml, "start=\"0.55\"", ""), "10: a mouth cue needs"},
      {Replaced(kRhubarbXml, "mouthCues>", "cues>"), "11: XML: "},
      {Replaced(kShortTextGrid, "\"TextGrid\"", "\"PitchTier\""),
       "2: it holds a \"PitchTier\", not"},
      {Replaced(kShortTextGrid, "ooTextFile", "ooBinaryFile"), "1: it is a TextGrid in a form"},
      {Replaced(kShortTextGrid, "3\n\"Int", "2.5\n\"Int"), "7: the number of tiers is no count"},
      {Replaced(kShortTextGrid, "3\n\"Int", "2000000000\n\"Int"), "7: the number of tiers is no"},
      {Replaced(kShortTextGrid, "3\n\"Int", "4\n\"Int"),
       "40: the file ends where the class of a tier"},
      {Replaced(kShortTextGrid, "3\n0\n0.2", "900000000\n0\n0.2"),
       "40: the file ends where the time"},
      {Replaced(kShortTextGrid, "1\n3\n0", "1\n2\n0"), "38: the file goes on after its last tier"},
      {Replaced(kShortTextGrid, "1\n3\n0", "3000001\n3\n0"),
       "0: it ends at 3000001 s: no recording"},
      {Replaced(kShortTextGrid, "TextTier", "Tier"), "20: a tier is an \"IntervalTier\" or"},
      {Replaced(kShortTextGrid, "0.2\n0.9\n\"a", "0.2\n\"a"), "17: something else stands where"},
      {Replaced(kShortTextGrid, "0.2\n0.9\n\"a", "0.2\n1e999\n\"a"),
       "17: the time that an interval ends"},
      {Replaced(kShortTextGrid, "\" OW1 \"", "\" OW1"),
       "40: the file ends within the text that begins"},
      {Utf16(kMoho, true) + "x", "6: the file ends within a character of UTF-16"},
      {std::string("\xFF\xFE") + "\n\0\0\xD8x\0"s, "2: half of a pair of UTF-16 stands alone"},
  };
  for (const auto& [text, reason] : refusals) {
    EXPECT_EQ(Refusal(text).substr(0, reason.size()), reason) << text;
  }
  EXPECT_EQ(Refusal(kMoho, {"x", {}}),
            "0: it is a Moho switch file and has no tiers: leave out --tier");
  EXPECT_EQ(Refusal(kPlainTable, {"", 24.0}),
            "0: it is a table and says its times: leave out --fps");
}

}  // namespace
}  // namespace lipvane::speech::test
