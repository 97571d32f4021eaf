#include <filesystem>

#include "lipvane/formats/phonemes.h"
#include "tests/cli/cli_test.h"
#include "tests/speech/timing_examples.h"

namespace lipvane::test {
namespace {

using namespace speech::test;

/// What the example line says: the target that each phone pulls, how strongly, and when it is
/// spoken in milliseconds.
struct Spoken {
  const char* label;
  int target;  // 0 for none
  double weight;
  int start;
  int end;
};
constexpr Spoken kHello[] = {
    {"", 0, 0, 0, 300},          {"HH", 3, .85, 300, 370},    {"AH0", 3, .85, 370, 450},
    {"L", 11, .85, 450, 540},    {"OW1", 5, .85, 540, 740},   {"DH", 10, .85, 740, 810},
    {"EH1", 3, .85, 810, 940},   {"R", 14, .85, 940, 1100},   {"sp", 3, .2, 1100, 1450},
    {"N", 13, .85, 1450, 1540},  {"AY1", 3, .85, 1540, 1770}, {"S", 7, .85, 1770, 1900},
    {"T", 11, .85, 1900, 1970},  {"AH0", 3, .85, 1970, 2060}, {"M", 12, .85, 2060, 2150},
    {"IY1", 1, .85, 2150, 2330}, {"T", 11, .85, 2330, 2400},  {"Y", 6, .85, 2400, 2480},
    {"UW1", 5, .85, 2480, 2700}, {"", 0, 0, 2700, 3000}};

class SpeakTest : public CliTest {
 protected:
  /// Speaks onto the example face, which has the phonemes of every new rig.
  ProcessResult Speak(const std::string& timing, const Arguments& more = {}) {
    return Lipvane({"speak", timing, lbp_}, more);
  }
  json Tracks(const std::string& timing, const Arguments& more = {}) {
    const ProcessResult result = Speak(timing, more);
    EXPECT_EQ(result.status, 0) << result.err;
    folder_.Make("made.ltf", result.out);
    return json::parse(Lipvane({"inspect", "made.ltf", "--json"}).out)["tracks"];
  }
  /// The keys of the jaw's turn, the same numbers as frames.
  json JawTurns(const std::string& scene) const {
    const json report = json::parse(Lipvane({"inspect", scene, "--json"}).out);
    for (const json& curve : report["curves"]) {
      if (curve["node"] == "|face_grp|neck|head|jaw" && curve["attribute"] == "rotateZ") {
        return curve["keys"];
      }
    }
    return {};
  }

  std::string lbp_ = ExportExample(kExamples + "face_poses.ma", "20");
};

TEST_F(SpeakTest, OpensAndClosesTheJawWithThePhones) {
  const ProcessResult spoken =
      Speak(kExamples + "hello.TextGrid", {"-o", folder_.Path("hello.ltf")});
  EXPECT_EQ(spoken.out + spoken.err, "");
  ASSERT_EQ(spoken.status, 0);
  const ProcessResult check = Lipvane({"check", "hello.ltf", lbp_});
  EXPECT_EQ(check.out + check.err, "");
  // The picture of the guide is what the commands beside it make.
  EXPECT_EQ(Lipvane({"plot", "hello.ltf", "--timing", kExamples + "hello.TextGrid"}).out,
            FileContent(kExamples + "../docs/hello.svg"));

  // A frame every 5 ms: one is in the middle of every phone.
  const std::string rig = kExamples + "face_rig.ma";
  ASSERT_EQ(Lipvane({"bake", rig, lbp_, "hello.ltf", "--fps", "200", "-o", "spoken.ma"}).status, 0);
  ASSERT_EQ(
      Lipvane({"run", rig, "-e", "facialAnim -import -lbp \"" + lbp_ + "\"", "-o", "poses.ma"})
          .status,
      0);
  const json poses = JawTurns("poses.ma");
  const json keys = JawTurns("spoken.ma");
  ASSERT_EQ(keys.size(), 601U);
  const auto turnAt = [&](int ms) {
    return keys[static_cast<std::size_t>(ms / 5)][1].get<double>();
  };
  const auto turnOf = [&](const Spoken& phone) {
    return phone.weight * poses[static_cast<std::size_t>(phone.target)][1].get<double>();
  };
  for (const Spoken& phone : kHello) {
    const int middle = (phone.start + phone.end) / 2;
    EXPECT_NEAR(turnAt(middle), turnOf(phone), 1e-4) << phone.label << " at " << middle;
    if (phone.end - phone.start > 160) {
      EXPECT_NEAR(turnAt(phone.start + 80), turnOf(phone), 1e-4) << phone.label;
      EXPECT_NEAR(turnAt(phone.end - 80), turnOf(phone), 1e-4) << phone.label;
    }
  }
  // Wide open in "hello", more than shut in "meet".
  EXPECT_LT(turnAt(640), -0.1);
  EXPECT_GT(turnAt(2105), 0.01);
}

TEST_F(SpeakTest, WritesTheSameForBothFormsOfATextGrid) {
  std::filesystem::create_directory("short");
  folder_.Make("a.TextGrid", kLongTextGrid);
  folder_.Make("short/a.TextGrid", kShortTextGrid);
  const std::string text = Speak("a.TextGrid").out;
  EXPECT_EQ(text.substr(0, text.find("\n\n// Speech")),
            "LTF\n1.0\n\n// Header lines\n2\n"
            "Made by lipvane speak from a.TextGrid (TextGrid, Ann - Phones) for example20.lbp.\n"
            "Times are in milliseconds. Ramp 80, lead 0, strength 1.");
  EXPECT_EQ(Speak("short/a.TextGrid").out, text);
  // A name that holds the beginning of a comment stays in its line.
  std::string odd = kShortTextGrid;
  odd.replace(odd.find("Ann - P"), 7, "Ann///p");
  EXPECT_EQ(Tracks(folder_.Make("odd.TextGrid", odd)), Tracks("a.TextGrid"));
}

TEST_F(SpeakTest, TakesItsOptionsIntoAccount) {
  const std::string table = folder_.Make("line.txt", "0.2 0.5 M\n0.5 0.9 AA1\n");
  const json tracks = Tracks(table, {"--ramp", "40", "--lead", "50", "--strength", "2"});
  ASSERT_EQ(tracks.size(), 15U);
  const double most = 1.7;
  EXPECT_EQ(tracks[11]["name"], "Bump");
  EXPECT_EQ(tracks[11]["keys"],
            json({{0, 0.0}, {110, 0.0}, {190, most}, {410, most}, {490, 0.0}, {850, 0.0}}));
  EXPECT_EQ(tracks[3]["keys"], json({{0, 0.0}, {410, 0.0}, {490, most}, {810, most}, {850, 0.0}}));

  // The shapes of a tool, with weights of the user's own.
  std::string rows;
  for (const std::string shape : {"X", "B", "F"})
    rows += shape + (shape == "B" ? " 0.25" : " 0") + " 0 0 0 0 0 0 0 0 0 0 0 0 0 0\n";
  const std::string shapes = folder_.Make("shapes.txt", rows);
  for (const std::string& text : {kRhubarbJson, kRhubarbXml, kRhubarbTsv}) {
    const std::string cues = folder_.Make("cues", text);
    EXPECT_EQ(Tracks(cues, {"--shapes", shapes})[0]["keys"][2], json({280, 0.25}));
    // Without them B is a mouth with its teeth together.
    EXPECT_EQ(Tracks(cues)[6]["keys"][2][0], 280);
  }
  const std::string frames = folder_.Make("line.dat", kMoho);
  EXPECT_EQ(Tracks(frames, {"--fps", "12"})[6]["keys"][2][0], 580);
}

TEST_F(SpeakTest, NamesEveryLabelThatNothingExplains) {
  const std::string table = folder_.Make("line.txt", "0 1 hm\n1 2 M\n2 3 zz\n3 4 hm\n");
  const std::string list =
      "\n  " + table + ":1: \"hm\" at 0 s, 2 times\n  " + table + ":3: \"zz\" at 2 s\n";
  ExpectFailure(
      {"speak", table, lbp_, "-o", "out.ltf"},
      table + ": 2 labels stand for no phoneme of " + lbp_ + ":" + list +
          "Words need an aligner first; --tier names another tier. --unknown PHONEME says "
          "what stands for all of these (Sil is silence), --shapes FILE gives them weights "
          "of their own.");
  EXPECT_FALSE(std::filesystem::exists("out.ltf"));
  const ProcessResult known = Speak(table, {"--unknown", "Ow"});
  EXPECT_EQ(known.status, 0);
  EXPECT_EQ(known.err,
            "Note: " + table + ": Ow stands for 2 labels that nothing else explains:" + list);
  // What stands for them is a sound, also among shapes.
  const std::string cues =
      folder_.Make("cues.json", R"({"mouthCues": [{"start": 0, "end": 1, "value": "Q1"}]})");
  EXPECT_EQ(Tracks(cues, {"--unknown", "B"})[11]["keys"].size(), 4U);
  ExpectFailure({"speak", table, lbp_, "--unknown", "Moo"},
                "--unknown: \"Moo\" is no phoneme of " + lbp_);
  // A rig with a table of its own.
  const std::string own = folder_.Make("own.lbp", LbpText({"jaw"}, {{{}}}));
  const std::string line = folder_.Make("own.txt", "0 1 P3\n1 2 ow\n");
  EXPECT_TRUE(Has(Lipvane({"speak", line, own}).err,
                  line + ":2: \"ow\" at 1 s (the phoneme Ow, which the face lacks)\n"));
}

TEST_F(SpeakTest, SaysWhichWordsTheAlignerDidNotKnowAndWhatIsATierOfWords) {
  const std::string table = folder_.Make("line.txt", "0 1 spn\n1 2 \\ae\n2 2.5 SPN\n");
  EXPECT_EQ(Speak(table).err,
            "Note: " + table +
                ":1: 2 words that the aligner did not know (spn): the mouth stays "
                "shut at 0 s, 2 s\n");
  const std::string grid = folder_.Make("a.TextGrid", kShortTextGrid);
  const std::string words =
      grid +
      ": the tier \"words\" holds words, not sounds; the tier \"Ann - Phones\" holds the sounds";
  EXPECT_EQ(Speak(grid, {"--tier", "words"}).err.find("Error: " + words + ". 1 label stands"), 0U);
  ExpectFailure({"speak", grid, lbp_, "--tier", "words", "--unknown", "Sil"}, words);
  // Labels alone may be sounds of the user's own.
  const std::string own = folder_.Make("own.txt", "0 1 open\n1 2 smile\n");
  EXPECT_EQ(Speak(own).status, 1);
  EXPECT_EQ(Speak(own, {"--unknown", "Aa"}).status, 0);
}

TEST_F(SpeakTest, SaysWhatIsLeftOutOrCannotBeSpoken) {
  const std::string table = folder_.Make("line.txt", "0 0.1 AA\n0.1 0.4 B\n0.4 0.4 T\n0.4 0.4 K\n");
  EXPECT_EQ(Speak(table, {"--lead", "60"}).err,
            "Note: " + table +
                ":3: \"T\" at 0.4 s and 1 more are too short for keys of their own and "
                "merged into their neighbours\n"
                "Note: " +
                table +
                ":1: \"AA\" at 0 s is moved before the beginning by the lead and left "
                "out\n");

  const std::string bad = folder_.Make("bad.txt", "0 1 AA\n0.5 2 B\n");
  const std::string text = folder_.Make("text.txt", "hello");
  const std::string grid = folder_.Make("a.TextGrid", kLongTextGrid);
  ExpectFailure({"speak", bad, lbp_},
                bad + ":2: \"B\" starts at 0.5 s, before the label on line 1 ends at 1 s");
  ExpectFailure({"speak", table, text}, text + ":1: the version is 0, not 2");
  ExpectFailure({"speak", table, lbp_, "--shapes", text},
                text + ":1: \"hello\" has 0 weights; the face has 15 speech targets");
  ExpectFailure({"speak", table, lbp_, "-o", "no/a.ltf"}, "no/a.ltf: there is no folder no");
  ExpectFailure({"speak", table, lbp_, "--tier", "phones"},
                table + ": it is a table and has no tiers: leave out --tier");
  ExpectFailure({"speak", grid, lbp_, "--fps", "24"},
                grid + ": it is a TextGrid and says its times: leave out --fps");
  std::string mute = "2\n0\nnone\n";
  for (int i = 0; i < kPhonemeCount; ++i)
    mute += "P\n";
  mute = folder_.Make("mute.lbp", mute + "0\nhead_bone=\nleft_eye_bone=\nright_eye_bone=\n0\n");
  ExpectFailure({"speak", table, mute},
                mute + ": it has no speech targets, so the face cannot speak");
  for (const Arguments& wrong : std::vector<Arguments>{{"--ramp", "-1"},
                                                       {"--lead", "x"},
                                                       {"--strength", "101"},
                                                       {"--unknown", ""},
                                                       {"--tier", ""},
                                                       {"--shapes", ""},
                                                       {"-o", table},
                                                       {"-o", lbp_},
                                                       {"--shapes", grid, "-o", grid}}) {
    EXPECT_EQ(Speak(table, wrong).status, 2) << wrong[0];
  }
}

}  // namespace
}  // namespace lipvane::test
