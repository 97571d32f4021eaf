#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <sstream>
#include <string>
#include <vector>

#include "lipvane/host/standalone/scene.h"
#include "lipvane/host/standalone/units.h"
#include "tests/host/standalone/scene_text.h"

namespace lipvane::standalone {
namespace {

const std::string kJaw =
    std::string(kHeader) +
    "createNode joint -n \"NS:jaw\";\n\tsetAttr \".tx\" 2.5;\n\tsetAttr -l on \".sx\";\n"
    "createNode animCurveTA -n \"c\";\n\trename -uid \"00-1\";\n\tsetAttr \".tan\" 18;\n"
    "\tsetAttr \".wgt\" no;\n\tsetAttr -s 3 \".ktv[0:1]\"  1 0.10 5 -0.00053405135248259965;\n"
    "\tsetAttr \".ktv[2]\" 9 3e1;\n\tsetAttr -s 3 \".kit[0:2]\"  18 1 9;\n"
    "\tsetAttr -s 3 \".kix[1]\"  0.0333333343267440;\n\tsetAttr -s 3 \".kiy[1]\"  -0.1;\n"
    "\tsetAttr -s 3 \".ktl[1:2]\"  no yes;\n"
    "createNode lambert -n \"other\";\nconnectAttr \"c.o\" \"NS:jaw.rx\";\n// End of jaw.ma\n";

/// What is left of `text` when the parts that both ends share with `original` are taken off.
std::string Difference(const std::string& original, const std::string& text) {
  std::size_t front = 0;
  while (front < original.size() && front < text.size() && original[front] == text[front])
    ++front;
  std::size_t back = 0;
  while (back < original.size() - front && back < text.size() - front &&
         original[original.size() - 1 - back] == text[text.size() - 1 - back]) {
    ++back;
  }
  return text.substr(front, text.size() - front - back);
}

std::string CurvesText(const Scene& scene) {
  std::ostringstream out;
  out.precision(17);
  for (const auto& driven : scene.DrivenChannels()) {
    out << ChannelName(driven.channel) << '\n';
    for (const CurveKey& key : driven.curve->keys)
      out << key.time << ' ' << key.value << ' ' << static_cast<int>(key.inType) << ' '
          << static_cast<int>(key.outType) << ' ' << key.inTangent.x << ' ' << key.inTangent.y
          << '\n';
  }
  return out.str();
}

void ExpectSameCurves(const Scene& a, const Scene& b) {
  EXPECT_EQ(CurvesText(a), CurvesText(b));
}

TEST(SceneWriting, KeepsEveryByteOfAnUnchangedScene) {
  for (const std::string& text :
       {kJaw, std::string("\xEF\xBB\xBF") + kJaw, std::string("createNode joint -n \"a\";"),
        std::string("createNode joint;\r\nsetAttr \".tx\" 1;\r\n\r\n"),
        std::string("createNode joint;\rsetAttr \".tx\" 1;\r// End of x"),
        std::string("createNode joint -n \"\xE9\x80\"; // caf\xE9\n/* ; */"),
        std::string("//Maya ASCII\0x\n", 15)}) {
    const Scene scene = Scene::Parse(text, "test.ma");
    scene.DrivenChannels();
    EXPECT_EQ(Written(scene), text);
  }
}

TEST(SceneWriting, ReadsTheSameWhateverTheLineEnds) {
  const Scene expected = Scene::Parse(kJaw, "test.ma");
  for (const std::string end : {"\r\n", "\r"}) {
    std::string text;
    for (const char c : kJaw)
      text += c == '\n' ? end : std::string(1, c);
    Scene scene = Scene::Parse(text, "test.ma");
    EXPECT_EQ(OwnPaths(scene), OwnPaths(expected));
    ExpectSameCurves(expected, scene);
    const NodeId jaw = At(scene, "|NS:jaw");
    scene.SetKey(jaw, Channel::kRotateX, 9, 1);
    scene.AttachCurve(jaw, Channel::kScaleY);
    scene.SetKey(jaw, Channel::kScaleY, 0, 1);
    const std::string written = Written(scene);
    EXPECT_EQ(written.find('\n') == std::string::npos, end == "\r");
    EXPECT_EQ(Difference(text, written).find("\r\r"), std::string::npos);
    ExpectSameCurves(scene, Scene::Parse(written, "again.ma"));
  }
}

TEST(SceneWriting, KeepsOnlyTheLaterOfTwoKeysAtOneTime) {
  Scene scene = Read(
      "createNode joint -n 'j'; createNode animCurveTL -n 'c'; "
      "setAttr '.ktv[0:2]' 1 1 1 2 3 nan; connectAttr 'c.o' 'j.tx';");
  scene.SetKey(At(scene, "|j"), Channel::kTranslateX, 5, 4);
  EXPECT_NE(Written(scene).find("\".ktv[0:2]\"  1 2 3 nan 5 4;"), std::string::npos);
}

TEST(SceneWriting, UnderstandsHalvesOfKeysAndRewritesThem) {
  const std::string start =
      "createNode joint -n \"j\";\ncreateNode animCurveTL -n \"c\";\n"
      "\tsetAttr -s 3 \".ktv[0:2]\" 1 2 5 6 9 7;\n";
  const std::string end = "connectAttr \"c.o\" \"j.tx\";\n";
  Scene scene = Read(start +
                     "\tsetAttr '.ktv[1].kv' 8; setAttr 'c.keyTimeValue[2].keyTime' 10; "
                     "setAttr '.ktv[3].kt' -1; " +
                     end);
  EXPECT_TRUE(scene.ReadingNotes().empty());
  const NodeId joint = At(scene, "|j");
  scene.SetKey(joint, Channel::kTranslateX, 3, 4);
  const std::string written = Written(scene);
  EXPECT_NE(written.find("\".ktv[0:4]\"  -1 0 1 2 3 4 5 8 10 7;\n"), std::string::npos) << written;
  EXPECT_EQ(written.find("\".ktv[1].kv\""), std::string::npos);
  ExpectSameCurves(scene, Scene::Parse(written, "again.ma"));
}

TEST(SceneWriting, TouchesOnlyWhatChanged) {
  const std::string text =
      std::string(kHeader) +
      "createNode joint -n \"j\";\ncreateNode animCurveTA -n \"c\";\n\tsetAttr \".tan\" 18;\n"
      "\tsetAttr -l on -s 3 \".ktv[0:1]\"  1 0.1 // first\n   5 7; setAttr \".ktv[2]\" 9 45;  // "
      "x\n"
      "\tsetAttr -s 3 -k off \".kit[0:2]\"\n  1 1 1; setAttr \".kix[1]\" 0.5;\n"
      "connectAttr \"c.o\" \"j.rx\";\n";
  Scene scene = Scene::Parse(text, "test.ma");
  const NodeId joint = At(scene, "|j");
  const std::vector<CurveKey> keys = scene.CurveOf(joint, Channel::kRotateX)->keys;
  for (const CurveKey& key : keys)
    scene.SetKey(joint, Channel::kRotateX, key.time, key.value);
  EXPECT_EQ(Written(scene), text) << "nothing changed";
  scene.SetKey(joint, Channel::kRotateX, 5, 90 * kRadiansPerDegree);
  EXPECT_EQ(Difference(text, Written(scene)), "90") << "no key came";
  scene.SetKey(joint, Channel::kRotateX, 5, keys[1].value);
  EXPECT_EQ(Written(scene), text) << "changed and changed back";
  scene.SetKey(joint, Channel::kRotateX, 12, 0);
  EXPECT_EQ(Difference(text, Written(scene)),
            "4 \".ktv[0:1]\"  1 0.1 5 7;\n\tsetAttr -s 4 \".ktv[2:3]\"  9 45 12 0")
      << "no index moved";
  scene.SetKey(joint, Channel::kRotateX, 3, 0);
  const std::string written = Written(scene);
  EXPECT_EQ(Difference(text, written),
            "5 \".ktv[0:2]\"  1 0.1 3 0 5 7;\n\tsetAttr -s 5 \".ktv[3:4]\"  9 45 12 0;  // x\n"
            "\tsetAttr -k off -s 5 \".kit[0]\"  1;\n\tsetAttr -k off -s 5 \".kit[2:3]\"  1 1; "
            "setAttr -s 5 \".kix[2]\" ");
  Scene again = Scene::Parse(written, "again.ma");
  ExpectSameCurves(scene, again);
  for (const CurveKey& key : scene.CurveOf(joint, Channel::kRotateX)->keys)
    again.SetKey(joint, Channel::kRotateX, key.time, key.value);
  EXPECT_EQ(Written(again), written);
}

TEST(SceneWriting, TakesAKeyForSetThatTheFileCannotShowOtherwise) {
  // Through a factor not every value has a number of the file that reads back as exactly it.
  Scene scene = Scene::Parse(kJaw, "test.ma");
  const NodeId jaw = At(scene, "|NS:jaw");
  std::vector<double> values;
  for (int i = 0; i < 200; ++i) {
    values.push_back(1 / (i + 3.7));
    scene.SetKey(jaw, Channel::kRotateX, 20 + i, values.back());
  }
  const std::string written = Written(scene);
  Scene again = Scene::Parse(written, "again.ma");
  for (int i = 0; i < 200; ++i)
    again.SetKey(jaw, Channel::kRotateX, 20 + i, values[static_cast<std::size_t>(i)]);
  EXPECT_EQ(Written(again), written);
}

TEST(SceneWriting, UsesTheUnitsOfTheFile) {
  Scene scene = Scene::Parse(
      "currentUnit -l m -a rad -t 30fps;\ncreateNode joint -n \"j\";\ncreateNode animCurveTL -n "
      "\"c\";"
      "\nsetAttr \".ktv[0]\" 1 2;\nconnectAttr \"c.o\" \"j.tx\";\n",
      "test.ma");
  const NodeId joint = At(scene, "|j");
  EXPECT_EQ(scene.CurveOf(joint, Channel::kTranslateX)->framesPerSecond, 30);
  EXPECT_EQ(scene.CurveOf(joint, Channel::kTranslateX)->keys[0].value, 200);
  scene.SetKey(joint, Channel::kTranslateX, 2, 350);
  scene.AttachCurve(joint, Channel::kRotateX);
  scene.SetKey(joint, Channel::kRotateX, 2, 0.25);
  EXPECT_NE(Written(scene).find("  1 2 2 3.5;"), std::string::npos);
  EXPECT_NE(Written(scene).find("  2 0.25;"), std::string::npos);
}

TEST(SceneWriting, SaysHowFarItIsUpToTheEnd) {
  Scene scene = Scene::Parse(kJaw + std::string(3 << 20, '\n'), "test.ma");
  const NodeId jaw = At(scene, "|NS:jaw");
  ASSERT_TRUE(scene.AttachCurve(jaw, Channel::kRotateY));
  for (int i = 0; i < 1000; ++i) {
    scene.SetKey(jaw, Channel::kRotateX, i, 0.5);
    scene.SetKey(jaw, Channel::kRotateY, i, 0.5);
  }
  std::vector<std::size_t> steps;
  std::size_t all = 0;
  std::ostringstream out;
  scene.Write(out, [&](std::size_t done, std::size_t total) {
    steps.push_back(done);
    all = total;
  });
  EXPECT_TRUE(std::is_sorted(steps.begin(), steps.end()));
  EXPECT_GT(steps.size(), 5u);
  EXPECT_EQ(steps.back(), all);
  EXPECT_EQ(out.str(), Written(scene));
}

TEST(SceneWriting, AddsNewCurvesBeforeTheEnd) {
  Scene scene = Scene::Parse(kJaw, "test.ma");
  const NodeId jaw = At(scene, "|NS:jaw");
  ASSERT_TRUE(scene.AttachCurve(jaw, Channel::kRotateY));
  ASSERT_TRUE(scene.AttachCurve(jaw, Channel::kTranslateX));
  EXPECT_EQ(scene.DrivenChannels().size(), 3u);
  EXPECT_EQ(scene.DrivenChannels()[0].channel, Channel::kTranslateX);
  EXPECT_EQ(scene.ValuesAt(jaw, 0).translate[0], 2.5) << "no key, no change";
  EXPECT_EQ(Written(scene), kJaw) << "a curve without keys would be zero in the host";

  scene.SetKey(jaw, Channel::kRotateY, 10, 90 * kRadiansPerDegree);
  scene.SetKey(jaw, Channel::kRotateY, 0, 0.1);
  EXPECT_EQ(Difference(kJaw, Written(scene)),
            "createNode animCurveTA -n \"NS_jaw_rotateY\";\n\tsetAttr \".tan\" 18;\n"
            "\tsetAttr \".wgt\" no;\n\tsetAttr -s 2 \".ktv[0:1]\"  0 5.729577951308232 10 90;\n"
            "connectAttr \"NS_jaw_rotateY.o\" \"NS:jaw.ry\";\n");
  scene.SetKey(jaw, Channel::kTranslateX, 0.5, 3);
  ExpectSameCurves(scene, Scene::Parse(Written(scene), "again.ma"));
  EXPECT_EQ(scene.ValuesAt(jaw, 0).translate[0], 3);
}

TEST(SceneWriting, AppendsWithTheLineEndsOfTheFile) {
  const auto append = [](const std::string& text) {
    Scene scene = Scene::Parse(text, "test.ma");
    scene.AttachCurve(At(scene, "|a|b"), Channel::kScaleX);
    scene.SetKey(At(scene, "|a|b"), Channel::kScaleX, 1, 2);
    return Written(scene).substr(text.size());
  };
  const std::string nodes = "createNode joint -n \"a\";createNode joint -n \"b\" -p \"a\";";
  const std::string added =
      "createNode animCurveTU -n \"b_scaleX\";\r\n\tsetAttr \".tan\" 18;\r\n\tsetAttr \".wgt\" no;"
      "\r\n\tsetAttr \".ktv[0]\"  1 2;\r\nconnectAttr \"b_scaleX.o\" \"b.sx\";\r\n";
  EXPECT_EQ(append("//Maya\r\n" + nodes + "\r\n"), added);
  EXPECT_EQ(append("//Maya\r\n" + nodes), "\r\n" + added);
  EXPECT_EQ(append("//Maya\r\n" + nodes + " /* // End of */ // done"), "\r\n" + added);
}

TEST(SceneWriting, NamesCurvesAndNodesUniquely) {
  const std::string text =
      "createNode joint -n \"a\";createNode joint -n \"jaw\" -p \"a\";\ncreateNode joint -n \"b\";"
      "createNode joint -n \"jaw\" -p \"b\";\ncreateNode lambert -n \"jaw_rotateX\";\n";
  Scene scene = Scene::Parse(text, "test.ma");
  for (const char* path : {"|a|jaw", "|b|jaw"}) {
    ASSERT_TRUE(scene.AttachCurve(At(scene, path), Channel::kRotateX));
    scene.SetKey(At(scene, path), Channel::kRotateX, 0, 1);
  }
  const std::string written = Written(scene);
  EXPECT_NE(written.find("connectAttr \"jaw_rotateX1.o\" \"a|jaw.rx\";"), std::string::npos);
  EXPECT_NE(written.find("connectAttr \"jaw_rotateX2.o\" \"b|jaw.rx\";"), std::string::npos);
  ExpectSameCurves(scene, Scene::Parse(written, "again.ma"));
}

TEST(SceneWriting, KeepsNamesWholeWhoseCharactersHaveTwoBytes) {
  // Characters that end in what looks like a backslash and a bar.
  for (const std::string so : {"\x83\\", "\x83\\\\"}) {
    Scene scene = Scene::Parse("//Maya ASCII\n//Codeset: 932\ncreateNode joint -n \"head\";\n" +
                                   ("createNode joint -n \"" + so + "\" -p \"head\";\n") +
                                   "createNode joint -n \"\x83|\x81[\" -p \"head|" + so +
                                   "\";\nsetAttr \"|head|" + so + "|\x83|\x81[.tx\" 3;\n",
                               "test.ma");
    const std::string path = "|head|\x83\\|\x83|\x81[";
    EXPECT_EQ(OwnPaths(scene), (std::vector<std::string>{"|head", "|head|\x83\\", path}));
    EXPECT_EQ(scene.ValuesAt(At(scene, path), 0).translate[0], 3);
    const NodeId joint = At(scene, "|head|\x83\\");
    scene.AttachCurve(joint, Channel::kRotateX);
    scene.SetKey(joint, Channel::kRotateX, 1, 1);
    EXPECT_NE(Written(scene).find(" \"" + so + ".rx\";"), std::string::npos) << "as in the file";
    ExpectSameCurves(scene, Scene::Parse(Written(scene), "again.ma"));
  }
}

TEST(SceneWriting, ReplacesTheKeysOfACurveInPlace) {
  Scene scene = Scene::Parse(kJaw, "test.ma");
  const NodeId jaw = At(scene, "|NS:jaw");
  ASSERT_TRUE(scene.AttachCurve(jaw, Channel::kRotateX));
  EXPECT_EQ(scene.CurveOf(jaw, Channel::kRotateX)->keys.size(), 3u) << "the curve stays";
  scene.SetKey(jaw, Channel::kRotateX, 3, 45 * kRadiansPerDegree);
  scene.SetKey(jaw, Channel::kRotateX, 9, 60 * kRadiansPerDegree);
  // What was not touched keeps its digits, at its new index.
  EXPECT_EQ(Difference(kJaw, Written(scene)),
            "4 \".ktv[0:3]\"  1 0.10 3 45 5 -0.00053405135248259965 9 60;\n"
            "\tsetAttr -s 4 \".kit[0]\"  18;\n\tsetAttr -s 4 \".kit[2:3]\"  1 9;\n"
            "\tsetAttr -s 4 \".kix[2]\"  0.0333333343267440;\n\tsetAttr -s 4 \".kiy[2]\"  -0.1;\n"
            "\tsetAttr -s 4 \".ktl[2:3");
  ExpectSameCurves(scene, Scene::Parse(Written(scene), "again.ma"));
}

TEST(SceneWriting, KeysACurveThatIsSetFromElsewhereOrNotAtAll) {
  const std::string start = std::string(kHeader) +
                            "createNode animCurveTL -n \"c\";\n\tsetAttr \".tan\" 18;\n"
                            "createNode joint -n \"j\";\nconnectAttr \"c.o\" \"j.tx\";\n";
  for (const std::string& end :
       {std::string(), std::string("setAttr \"c.ktv[0]\" 1 2;"),
        std::string("setAttr \"c.ktv[0]\" 1 2; setAttr \"c.kit[0]\" 1;\n")}) {
    Scene scene = Scene::Parse(start + end, "test.ma");
    scene.SetKey(At(scene, "|j"), Channel::kTranslateX, 7, 0.1 + 0.2);
    const Scene again = Scene::Parse(Written(scene), "again.ma");
    EXPECT_TRUE(again.ReadingNotes().empty());
    ExpectSameCurves(scene, again);
  }
}

TEST(SceneWriting, SplitsManyKeysAsTheHostDoes) {
  Scene scene = Scene::Parse(kJaw, "test.ma");
  const NodeId jaw = At(scene, "|NS:jaw");
  scene.AttachCurve(jaw, Channel::kTranslateY);
  for (int i = 0; i < 501; ++i)
    scene.SetKey(jaw, Channel::kTranslateY, i / 3.0, i * 0.1);
  const std::string written = Written(scene);
  for (const char* range : {"-s 501 \".ktv[0:249]\"", ".ktv[250:499]", ".ktv[500]"}) {
    EXPECT_NE(written.find(range), std::string::npos) << range;
  }
  ExpectSameCurves(scene, Scene::Parse(written, "again.ma"));
}

TEST(SceneWriting, SurvivesBeingCutOffOrPatchedAnywhere) {
  int read = 0;
  const auto tryText = [&read](const std::string& text) {
    try {
      Scene scene = Scene::Parse(text, "test.ma");
      for (NodeId node = 1; node < scene.NodeCount(); ++node) {
        scene.ValuesAt(node, 3);
        if (scene.AttachCurve(node, Channel::kRotateX)) scene.SetKey(node, Channel::kRotateX, 3, 1);
      }
      ExpectSameCurves(scene, Scene::Parse(Written(scene), "again.ma"));
      ++read;
    } catch (const SceneError& error) {
      EXPECT_EQ(std::string(error.what()).rfind("test.ma:", 0), 0u);
    }
  };
  for (std::size_t length = 0; length < kJaw.size(); ++length)
    tryText(kJaw.substr(0, length));
  EXPECT_GT(read, 20);
  for (const char byte : {';', '"', '\0', '9'}) {
    for (std::size_t i = 0; i < kJaw.size(); ++i) {
      std::string patched = kJaw;
      patched[i] = byte;
      tryText(patched);
    }
  }
}

}  // namespace
}  // namespace lipvane::standalone
