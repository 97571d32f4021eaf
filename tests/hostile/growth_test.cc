// What files cost, by how it grows with their size: never with its square.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <ctime>
#include <functional>
#include <limits>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

#include "cli/report.h"
#include "cli/summary.h"
#include "lipvane/check/lbp_check.h"
#include "lipvane/check/ltf_check.h"
#include "lipvane/check/scene_check.h"
#include "lipvane/check/vocabulary.h"
#include "lipvane/engine/animation.h"
#include "lipvane/formats/lbp.h"
#include "lipvane/formats/lbp_hierarchy.h"
#include "lipvane/formats/ltf.h"
#include "lipvane/host/standalone/interpreter.h"
#include "lipvane/host/standalone/scene.h"
#include "lipvane/plugin/registration.h"
#include "lipvane/speech/meanings.h"
#include "lipvane/speech/phones.h"
#include "lipvane/speech/speech_tracks.h"
#include "lipvane/speech/timing.h"
#include "tests/hostile/readers.h"
#include "tests/support/allocations.h"
#include "tests/support/lbp_text.h"
#include "tests/support/temporary_folder.h"

namespace lipvane::test {
namespace {

using standalone::Scene;
using Texts = std::function<std::string(int n)>;

std::string Times(int n, const std::string& text) {
  std::string all;
  for (int i = 0; i < n; ++i)
    all += text;
  return all;
}

/// The pattern for each number from `first` on and below n: every '#' is the number, every '@' the
/// one before.
std::string Each(int n, const std::string& pattern, int first = 0) {
  std::string all;
  for (int i = first; i < n; ++i) {
    for (const char c : pattern)
      all += c == '#' ? std::to_string(i) : c == '@' ? std::to_string(i - 1) : std::string(1, c);
  }
  return all;
}

std::string SceneText(const std::string& body) {
  return "//Maya ASCII 2024 scene\n" + body;
}
/// Joints one below the other, each with what the pattern says.
std::string DeepScene(int n, const std::string& more = {}) {
  return SceneText("createNode joint -n \"j0\";\n" +
                   Each(n, "createNode joint -n \"j#\" -p \"j@\";\n" + more, 1));
}
std::string Lbp(int bones, const std::string& name, bool isNumbered, int poses = 1) {
  std::vector<std::string> names;
  for (int i = 0; i < bones; ++i)
    names.push_back(isNumbered ? name + std::to_string(i) : name);
  return LbpText(names, std::vector<std::vector<BoneLine>>(
                            static_cast<std::size_t>(poses),
                            std::vector<BoneLine>(static_cast<std::size_t>(bones))));
}
std::string Ltf(int tracks, const std::string& name, int keys) {
  std::string track = "{\n" + name + "\n" + std::to_string(keys) + "\n";
  for (int i = 0; i < keys; ++i) {
    const bool isLineEnd = i == 24 || (i > 24 && (i + 2) % 26 == 0) || i + 1 == keys;
    track += std::to_string(i) + " 0.5" + (isLineEnd ? "\n" : " ");
  }
  return "LTF\n1\n0\n" + std::to_string(tracks) + "\n" + Times(tracks, track + "}\n") + "0\n";
}
std::string Grid(int tiers, const std::string& tier) {
  return "\"ooTextFile\"\n\"TextGrid\"\n0 1 <exists>\n" + std::to_string(tiers) + "\n" +
         Times(tiers, tier);
}
std::string Xml(const std::string& cues) {
  return "<rhubarbResult><mouthCues>\n" + cues + "</mouthCues></rhubarbResult>";
}
std::string Json(const std::string& cues) {
  return "{\"mouthCues\": [" + cues + "{\"start\": 1e6, \"end\": 1e6, \"value\": \"X\"}]}";
}

Scene Parsed(const std::string& text) {
  return Scene::Parse(text, "growth.ma");
}

struct Discard : std::streambuf {
  std::streamsize xsputn(const char* /*bytes*/, std::streamsize count) override { return count; }
  int overflow(int /*byte*/) override { return 0; }
};

/// What both commands do to a scene, the report of it, and its writing.
void Run(const std::string& sceneText, const std::string& lbp, const std::string& command) {
  const TemporaryFolder folder;
  const std::string file = folder.Make("a.lbp", lbp);
  Scene scene = Parsed(sceneText);
  standalone::Interpreter interpreter(scene, [](const standalone::Message&) {});
  plugin::InitializePlugin(interpreter);
  ASSERT_FALSE(interpreter.Run({"facialAnim", command, "-lbpfile", file}).Failed());
  Discard nowhere;
  std::ostream out(&nowhere);
  scene.Write(out);
  plugin::UninitializePlugin(interpreter);
  // What the next one would free counts in its favour.
  BoneNameByNumber.clear();
  BoneNumberByName.clear();
  BoneParentByName.clear();
}

struct Case {
  std::string name;
  int n;  ///< of the smaller one of two files, the other one is kFactor times as large
  std::function<void(const std::string& text)> work;
  Texts text;
};

void PrintTo(const Case& one, std::ostream* out) {
  *out << one.name;
}

constexpr int kFactor = 4;

std::vector<Case> ReaderCases() {
  struct Row {
    const char* reader;
    const char* name;
    int n;
    Texts text;
  };
  const auto scene = [](const std::string& pattern) {
    return [pattern](int n) { return SceneText(Each(n, pattern)); };
  };
  const auto times = [](const std::string& before, const std::string& piece,
                        const std::string& behind = {}) {
    return [=](int n) { return before + Times(n, piece) + behind; };
  };
  const std::string header = "//Maya ASCII 2024 scene\ncreateNode joint -n \"a\";\n";
  const std::string curve = header + "createNode animCurveTL -n \"c\";\n";
  const std::vector<Row> rows = {
      {"scene", "BlankLines", 300000, times(header, "\n")},
      {"scene", "Comments", 60000, times(header, "// a\n/* b */")},
      {"scene", "OpenComments", 100000, times(header, "/* /")},
      {"scene", "VastWord", 500000, times(header + "createNode joint -n ", "x", ";")},
      {"scene", "VastString", 200000, times(header + "rename \"", "\\\"", "\";")},
      {"scene", "JoinedStrings", 100000, times(header + "rename (\"a\"", " + \"b\"", ");")},
      {"scene", "Braces", 300000, times(header, "{ ")},
      {"scene", "Parentheses", 100000, times(header + "createNode ", "(", ";")},
      {"scene", "Words", 50000, times(header + "createNode joint", " -x a", ";")},
      {"scene", "UnknownCommands", 10000, scene("foo# a;\n")},
      {"scene", "Children", 5000,
       [=](int n) { return header + Each(n, "createNode joint -n \"b#\" -p \"a\";\n"); }},
      {"scene", "Levels", 5000, [](int n) { return DeepScene(n); }},
      {"scene", "LevelsWithCurves", 2000,
       [](int n) {
         return DeepScene(n,
                          "createNode animCurveTL -n \"c#\";\nsetAttr \".ktv[0]\" 1 2;\n"
                          "connectAttr \"c#.o\" \"j#.tx\";\n");
       }},
      {"scene", "Rings", 4000,
       scene("createNode joint -n \"a#\";\ncreateNode joint -n \"b#\" -p \"a#\";\n"
             "parent \"a#\" \"b#\";\nparent \"a#\" \"a#\";\n")},
      {"scene", "OneName", 5000, times(header, "createNode joint -n \"a\";\n")},
      {"scene", "LastNumber", 2000,
       times(header, "createNode joint -n \"a18446744073709551615\";\n")},
      {"scene", "Values", 10000, times(header, "setAttr \".t\" -type \"double3\" 1 2 3;\n")},
      {"scene", "BadValuesOfALongName", 3000,
       [](int n) {
         return SceneText("createNode joint -n \"" + Times(20 * n, "x") + "\";\n" +
                          Times(n, "setAttr \".t\" x y z;\n"));
       }},
      {"scene", "Units", 3000, scene("createNode animCurveTL -n \"c#\";\ncurrentUnit -t film;\n")},
      {"scene", "Connections", 10000, times(curve, "connectAttr \"c.o\" \"a.tx\";\n")},
      {"scene", "ManyDriven", 3000,
       [=](int n) {
         return curve + "setAttr \".ktv[0]\" 1 2;\n" +
                Each(n, "createNode joint -n \"b#\";\nconnectAttr \"c.o\" \"b#.tx\";\n");
       }},
      {"scene", "OneKey", 10000,
       times(curve, "setAttr \".ktv[0]\" 1 2;\n", "connectAttr \"c.o\" \"a.tx\";\n")},
      {"scene", "KeysBackwards", 5000,
       [=](int n) {
         std::string keys;
         for (int i = n; i > 0; --i)
           keys += "setAttr \".ktv[" + std::to_string(i) + "]\" " + std::to_string(n - i) + " 2;\n";
         return curve + keys + "connectAttr \"c.o\" \"a.tx\";\n";
       }},
      {"scene", "Renamings", 5000, times(header, "rename \"a\" \"b\";\nrename \"b\" \"a\";\n")},
      {"scene", "RenamingsToOne", 4000,
       scene("createNode joint -n \"b#\";\nrename \"b#\" \"a\";\n")},
      {"scene", "Instances", 3000,
       [=](int n) {
         return header + Each(n, "createNode joint -n \"p#\";\nparent -add \"a\" \"p#\";\n");
       }},
      {"scene", "References", 10000, scene("file -r \"a#\";\n")},

      {"lbp", "Bones", 2000, [](int n) { return Lbp(n, "b", true); }},
      {"lbp", "OneBone", 2000, [](int n) { return Lbp(n, "b", false); }},
      {"lbp", "Poses", 2000, [](int n) { return Lbp(1, "b", true, n); }},
      {"lbp", "BlankLines", 300000, times("2\n", "\n", "x")},
      {"lbp", "Comments", 300000, times("2\n", "// x\n")},
      {"lbp", "LongLine", 300000, times("2\n100\n", "a ")},
      {"hierarchy", "Bones", 2000, [](int n) { return Lbp(n, "b", true, 0); }},
      {"hierarchy", "OneBone", 2000, [](int n) { return Lbp(n, "b", false, 0); }},
      {"ltf", "Tracks", 5000, [](int n) { return Ltf(n, "Eat", 2); }},
      {"ltf", "Keys", 20000, [](int n) { return Ltf(1, "Eat", n); }},
      {"ltf", "LongName", 500000, [](int n) { return Ltf(1, Times(n, "x"), 1); }},
      {"ltf", "Slashes", 300000, times("LTF\n1\n1\na", "/ ", "\n0\n0\n")},

      {"mel", "Commands", 10000, times("", "select -cl;\n")},
      {"mel", "CommandsWithoutEnds", 10000, times("", "select -cl\n")},
      {"mel", "Comments", 60000, times("", "// a\n/* b */")},
      {"mel", "OpenComment", 300000, times("/*", "/")},
      {"mel", "VastString", 200000, times("select \"", "\\\"", "\";")},
      {"mel", "Words", 50000, times("select", " a", ";")},
      {"mel", "Ends", 300000, times("", "; ")},

      {"shapes", "Rows", 5000, [](int n) { return Each(n, "a# 1 2\n"); }},
      {"shapes", "LongRow", 50000, times("a", " 1")},
      {"textgrid", "Intervals", 5000,
       [](int n) {
         return Grid(1, "\"IntervalTier\" \"phones\" 0 1 " + std::to_string(n) + "\n" +
                            Times(n, "0 0 \"a\"\n"));
       }},
      {"textgrid", "Tiers", 5000,
       [](int n) { return Grid(n, "\"IntervalTier\" \"phones\" 0 1 0\n"); }},
      {"textgrid", "Quotes", 100000, times("\"ooTextFile\" \"", "\"\"")},
      {"textgrid", "Comments", 500000, times("\"ooTextFile\"\n", "!\n")},
      {"textgrid", "Words", 500000, times("\"ooTextFile\"\n", "a ")},
      {"rhubarb_json", "Cues", 10000,
       [](int n) { return Json(Times(n, "{\"start\": 0, \"end\": 0, \"value\": \"B\"},\n")); }},
      {"rhubarb_json", "Levels", 500000, times("{\"a\": ", "[")},
      {"rhubarb_json", "ClosedLevels", 200000,
       [](int n) { return "{\"a\": " + Times(n, "{\"\":") + "0" + Times(n, "}") + "}"; }},
      {"rhubarb_json", "VastString", 1000000, times("{\"a\": \"", "\\n", "\"}")},
      {"rhubarb_xml", "Cues", 10000,
       [](int n) { return Xml(Times(n, "<mouthCue start='0' end='0'>B</mouthCue>\n")); }},
      {"rhubarb_xml", "Levels", 100000, times("", "<a>")},
      {"rhubarb_xml", "ClosedLevels", 100000,
       [](int n) { return Times(n, "<a>") + Times(n, "</a>"); }},
      {"rhubarb_xml", "Attributes", 100000, times("<a", " b=''", "/>")},
      {"rhubarb_xml", "Entities", 200000, times("<a>", "&amp;", "</a>")},
      {"rhubarb_tsv", "Lines", 50000, times("", "0\tB\n", "1\tX\n")},
      {"rhubarb_tsv", "Blanks", 500000, times("0\tB\n", " \n", "1\tX\n")},
      {"papagayo", "Words", 20000,
       [](int n) {
         return "lipsync version 1\na.wav\n24\n9\n1\nv\n\n1\np\n0\n9\n" + std::to_string(n) + "\n" +
                Times(n, "w 1 1 1\n1 AI\n");
       }},
      {"papagayo", "Voices", 50000,
       [](int n) {
         return "lipsync version 1\na.wav\n24\n9\n" + std::to_string(n) + "\n" +
                Times(n, "v\n\n0\n");
       }},
      {"moho", "Lines", 50000, times("MohoSwitch1\n", "1 rest\n")},
      {"timing_table", "Lines", 50000, times("", "0 0 B\n")},
      {"timing_table", "LongLine", 500000, times("0 0", " a", "\n")},
  };
  std::vector<Case> cases;
  for (const Row& row : rows) {
    const auto reader = std::find_if(Readers().begin(), Readers().end(),
                                     [&](const Reader& one) { return one.name == row.reader; });
    cases.push_back({"Read_" + reader->name + "_" + row.name, row.n,
                     [reader](const std::string& text) { reader->answer(text); }, row.text});
  }
  return cases;
}

/// What is done with files that were read.
std::vector<Case> WorkCases() {
  const auto ofScene = [](const std::function<void(Scene&)>& work) {
    return [work](const std::string& text) {
      Scene scene = Parsed(text);
      work(scene);
    };
  };
  /// With a bone for every two flags of the scene, or the one bone "a".
  const auto ran = [](const std::string& command, bool isOneBone = false) {
    return [=](const std::string& text) {
      const int bones = static_cast<int>(std::count(text.begin(), text.end(), '-')) / 2;
      Run(text, isOneBone ? Lbp(1, "a", false) : Lbp(bones, "j", true), command);
    };
  };
  const auto summary = ofScene([](Scene& scene) { cli::SceneSummary("growth.ma", scene); });
  const auto checked = [](const std::string& text) {
    std::vector<check::Finding> findings;
    check::CheckLbp("a.lbp", text, findings);
    check::CheckLtf("a.ltf", text, check::NewRigVocabulary(), findings);
  };
  const auto checkScene = ofScene([](Scene& scene) {
    std::vector<check::Finding> findings;
    const std::string lbp = Lbp(static_cast<int>(scene.NodeCount()), "j", true);
    check::CheckAgainstScene("a.lbp", lbp, {scene, "growth.ma", {}}, findings);
  });
  /// Two chains of the same names: nothing but the top tells their nodes apart.
  const Texts twins = [](int n) {
    const std::string chain = Each(n, "createNode joint -n \"j#\" -p \"j@\";\n", 1);
    return SceneText("createNode joint -n \"a\";\ncreateNode joint -n \"j0\" -p \"a\";\n" + chain +
                     "createNode joint -n \"b\";\ncreateNode joint -n \"j0\" -p \"b\";\n" + chain);
  };
  const Texts longDriver = [](int n) {
    return SceneText("createNode network -n \"" + Times(50 * n, "x") + "\";\n" +
                     Each(n, "createNode joint -n \"j#\";\n") + "select -ne \"" +
                     Times(50 * n, "x") + "\";\n" + Each(n, "connectAttr \".a\" \"j#.tx\";\n"));
  };
  const Texts locked = [](int n) { return DeepScene(n, "setAttr -l on \".tx\";\n"); };
  return {
      {"Import_Levels", 1000, ran("-import"), [](int n) { return DeepScene(n); }},
      {"Import_LockedLevels", 1500, ran("-import"), locked},
      {"Import_OneNameDown", 1000, ran("-import", true),
       [](int n) {
         return SceneText("createNode joint -n \"a\";\n" +
                          Times(n - 1, "createNode joint -n \"a\" -p \"a\";\n"));
       }},
      {"Import_SharedCurve", 1000, ran("-import"),
       [](int n) {
         return SceneText("createNode animCurveTL -n \"c\";\n" +
                          Each(n, "createNode joint -n \"j#\";\nconnectAttr \"c.o\" \"j#.tx\";\n"));
       }},
      {"Import_LongDriver", 1000, ran("-import"), longDriver},
      {"Select_Levels", 1000, ran("-select"), [](int n) { return DeepScene(n); }},
      {"ShortestName_Twins", 8000,
       ofScene([](Scene& scene) { scene.ShortestName(scene.PathCount() - 1); }), twins},
      {"Summary_Levels", 2000, summary,
       [](int n) {
         return DeepScene(n,
                          "createNode animCurveTL -n \"c#\";\nsetAttr \".ktv[0]\" 1 2;\n"
                          "connectAttr \"c#.o\" \"j#.tx\";\nconnectAttr \"q.o\" \"j#.ty\";\n");
       }},
      {"Curves_LongNamesOfInstances", 1000,
       [](const std::string& text) {
         Scene scene = Parsed(text);
         scene.DrivenChannels();
         standalone::Interpreter interpreter(scene, [](const standalone::Message&) {});
         interpreter.Run({"select", "a"});
       },
       [](int n) {
         const std::string name = Times(50 * n, "x");
         return SceneText("createNode joint -n \"a\";\n" +
                          Each(n, "createNode joint -n \"p#\";\nparent -add \"a\" \"p#\";\n") +
                          Each(8, "createNode joint -n \"" + name + "#\" -p \"a\";\n") +
                          "createNode animCurveTL -n \"c\";\nsetAttr \".ktv[0]\" 1 2;\n"
                          "connectAttr \"c.o\" \"a.tx\";\nconnectAttr \"c.o\" \"a.ty\";\n");
       }},
      {"Report_Nodes", 2000, ofScene([](Scene& scene) { cli::SceneReport(scene); }),
       [](int n) { return SceneText(Each(n, "createNode joint -n \"j#\";\n")); }},
      {"Check_Levels", 1000, checkScene, locked},
      {"Check_LongDriver", 1000, checkScene, longDriver},
      {"Check_Bones", 2000, checked, [](int n) { return Lbp(n, "b", true); }},
      {"Check_OneBone", 2000, checked, [](int n) { return Lbp(n, "b", false); }},
      {"Check_LongBone", 3000, checked,
       [](int n) { return Lbp(1, Times(100 * n, "x"), false, n) + Times(n, "x\n"); }},
      {"Check_Tracks", 2000, checked, [](int n) { return Ltf(n, "Eat", 2); }},
      {"Check_Keys", 10000, checked, [](int n) { return Ltf(1, "Eat", n); }},
      {"Check_LongTrack", 5000, checked, [](int n) { return Ltf(1, Times(100 * n, "x"), n); }},
      {"Report_Lbp", 2000,
       [](const std::string& text) {
         TBonePoseInfo info;
         PhonemeMapping mapping;
         ReadProblem problem;
         ASSERT_TRUE(ReadLbpText(text, info, mapping, problem));
         cli::LbpReport(text, info, mapping);
         cli::LbpSummary("a.lbp", info, mapping);
       },
       [](int n) { return Lbp(n, "b", true); }},
      {"Report_Ltf", 5000,
       [](const std::string& text) {
         TAnimation animation;
         ReadProblem problem;
         ASSERT_TRUE(ReadLtfText(text, animation, problem));
         cli::LtfReport(animation);
         cli::LtfSummary("a.ltf", animation);
         std::vector<double> weights;
         for (int i = 0; i < animation.length; ++i)
           animation.ValuesAtTime(i + 0.5, weights);
       },
       [](int n) { return Ltf(1, "Eat", n); }},
      {"Speak_Labels", 3000,
       [](const std::string& text) {
         speech::Timing timing;
         ReadProblem problem;
         ASSERT_TRUE(speech::ReadTimingText(text, {}, timing, problem)) << problem.reason;
         const PhonemeMapping mapping{{"Eat", "Ox"}, {"Aa"}, {{0.5F, 1.0F}}};
         const speech::Meanings meanings(mapping, timing.shapes);
         const speech::Weights standIn = {0.75F, 0.0F};
         std::vector<speech::UnknownLabel> unknown;
         const auto phones = speech::PhonesOf(timing, meanings, &standIn, unknown);
         speech::LeftOut leftOut;
         speech::SpeechTracks(phones, timing.end, meanings.Silence(), mapping.speechTargets, {},
                              leftOut);
       },
       // All but the last ones of no length: they are merged.
       [](int n) { return Times(n, "0 0 Aa\n") + Each(n, "# # l#\n# #.5 Aa\n"); }},
  };
}

/// What would grow with the square ends at a limit, with a reason that names the line.
TEST(Growth, ManyNodesOfOneNameEndAtALimit) {
  const std::vector<std::string> scenes = {
      // Each new parent's second "a" is in the way of all names behind it.
      Each(4200, "createNode network -n \"a#\";\n") +
          Each(4200,
               "createNode joint -n \"p#\";\ncreateNode joint -n \"a\" -p \"p#\";\n"
               "createNode joint -n \"a\" -p \"p#\";\n"),
      // Below each "a" the rest of the path is looked for.
      Each(2000, "createNode joint -n \"p#\";\ncreateNode joint -n \"a\" -p \"p#\";\n") +
          Times(30, "select -ne \"a|" + Times(200000, "x") + "\";\n"),
  };
  for (const std::string& scene : scenes) {
    try {
      Parsed(SceneText(scene));
      ADD_FAILURE() << "it is read";
    } catch (const standalone::SceneError& error) {
      EXPECT_NE(std::string(error.what()).find("too many nodes share their names"),
                std::string::npos)
          << error.what();
    }
  }
}

TEST(Growth, ACommandOfManyPartialPathsEndsAtALimit) {
  constexpr int kNodes = 4200;
  Scene scene = Parsed(SceneText(
      Each(kNodes, "createNode joint -n \"p#\";\ncreateNode joint -n \"a\" -p \"p#\";\n")));
  std::vector<std::string> errors;
  standalone::Interpreter interpreter(
      scene, [&](const standalone::Message& message) { errors.push_back(message.text); });
  std::vector<std::string> words = {"select"};
  for (int i = 0; i < kNodes; ++i)
    words.push_back("p" + std::to_string(i) + "|a");
  EXPECT_TRUE(interpreter.Run(words).Failed());
  EXPECT_EQ(errors, std::vector<std::string>{
                        "select: too many nodes would have to be looked at for its names"});
  EXPECT_FALSE(interpreter.Run({"select", "p1|a"}).Failed());
}

TEST(Growth, RenamingManyInstancesEndsAtALimit) {
  const auto text = [](int nameLength) {
    return SceneText("createNode joint -n \"a\";\n" +
                     Each(2000, "createNode joint -n \"p#\";\nparent -add \"a\" \"p#\";\n") +
                     "rename \"a\" \"" + Times(nameLength, "x") + "\";\n");
  };
  Parsed(text(100'000));
  // Each parent has the name looked at.
  EXPECT_THROW(Parsed(text(2'000'000)), standalone::SceneError);
}

class GrowthOf : public testing::TestWithParam<Case> {};

double Seconds(const Case& one, const std::string& text) {
  const std::clock_t begin = std::clock();
  one.work(text);
  return static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
}

TEST_P(GrowthOf, IsNotQuadratic) {
  const Case& one = GetParam();
  const std::string small = one.text(one.n);
  const std::string large = one.text(kFactor * one.n);
  // Allocators and vectors round up, each time twofold at most. A square would be four times that.
  const std::size_t smallPeak = PeakBytesOf([&] { one.work(small); });
  const std::size_t largePeak = PeakBytesOf([&] { one.work(large); });
  EXPECT_LT(largePeak, 2 * kFactor * smallPeak + 4 * large.size() + (1U << 20));

  // What disturbs a measurement makes it longer: the best of some is nearest the truth.
  constexpr double kSlack = 0.02;
  double smallBest = std::numeric_limits<double>::infinity();
  double largeBest = smallBest;
  for (int i = 0; i < 5; ++i) {
    smallBest = std::min(smallBest, Seconds(one, small));
    largeBest = std::min(largeBest, Seconds(one, large));
    if (largeBest < 2 * kFactor * smallBest + kSlack) return;
  }
  ADD_FAILURE() << one.n << ": " << smallBest << " s, " << kFactor << " times that: " << largeBest
                << " s";
}

const auto kNameOf = [](const auto& one) { return one.param.name; };
INSTANTIATE_TEST_SUITE_P(Readers, GrowthOf, testing::ValuesIn(ReaderCases()), kNameOf);
INSTANTIATE_TEST_SUITE_P(Work, GrowthOf, testing::ValuesIn(WorkCases()), kNameOf);

}  // namespace
}  // namespace lipvane::test
