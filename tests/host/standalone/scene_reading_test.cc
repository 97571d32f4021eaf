#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "lipvane/host/standalone/limits.h"
#include "lipvane/host/standalone/scene.h"
#include "tests/host/standalone/scene_text.h"

namespace lipvane::standalone {
namespace {

using Paths = std::vector<std::string>;

TEST(SceneReading, MeetsTheWorldAndTheDefaultCamerasFirst) {
  const Scene scene = Read(
      "createNode joint -n 'root'; createNode transform -s -n 'top'; "
      "createNode camera -s -n 'topShape' -p 'top';");
  Paths paths;
  for (PathId i = 0; i < scene.PathCount(); ++i)
    paths.push_back(scene.FullPath(i));
  EXPECT_EQ(paths, (Paths{"", "|persp", "|persp|perspShape", "|top", "|top|topShape", "|front",
                          "|front|frontShape", "|side", "|side|sideShape", "|root"}));
  EXPECT_EQ(scene.Name(0), "world");
  EXPECT_EQ(scene.Kind(0), NodeKind::kWorld);
  EXPECT_FALSE(scene.IsInFile(0));
  EXPECT_TRUE(scene.IsInFile(At(scene, "|top|topShape")));
  EXPECT_FALSE(scene.IsInFile(At(scene, "|persp")));
  EXPECT_EQ(scene.Kind(At(scene, "|top|topShape")), NodeKind::kShape);
  EXPECT_EQ(scene.FirstParent(At(scene, "|root")), 0u);
}

TEST(SceneReading, TellsKindsOfNodesApart) {
  const Scene scene = Read(
      "createNode joint -n 'j'; createNode mesh -n 's' -p 'j'; createNode rigGroup -n 'plugged'; "
      "createNode joint -n 'k' -p 'plugged'; createNode parentConstraint -n 'c' -p 'k'; "
      "createNode lambert -n 'notInDag';");
  EXPECT_EQ(OwnPaths(scene), (Paths{"|j", "|j|s", "|plugged", "|plugged|k", "|plugged|k|c"}));
  EXPECT_EQ(scene.Kind(At(scene, "|j")), NodeKind::kJoint);
  EXPECT_EQ(scene.Kind(At(scene, "|j|s")), NodeKind::kShape);
  EXPECT_EQ(scene.Kind(At(scene, "|plugged")), NodeKind::kTransform);
  EXPECT_EQ(scene.Kind(At(scene, "|plugged|k|c")), NodeKind::kTransform);
  EXPECT_EQ(scene.Type(At(scene, "|j|s")), "mesh");
}

TEST(SceneReading, TellsTransformsOfOtherTypes) {
  const Scene scene = Read(
      "createNode nucleus -n 'top'; createNode transform -n 'g'; "
      "createNode hikIKEffector -n 'h' -p 'g'; setAttr '.tx' 2; "
      "createNode plugIn -n 'set' -p 'g'; setAttr '.s' -type 'double3' 1 2 3; "
      "createNode plugIn -n 'driven' -p 'g'; connectAttr 'h.ry' 'driven.ry'; "
      "createNode plugIn -n 'bound' -p 'g'; connectAttr 'h.out' 'bound.t'; "
      "createNode plugIn -n 'neither' -p 'g'; setAttr '.s' 2; setAttr '.ro' 1; "
      "createNode mesh -n 'shape' -p 'g'; setAttr '.tx' 2;");
  std::string transforms;
  for (const char* path :
       {"|top1", "|g|h", "|g|set", "|g|driven", "|g|bound", "|g|neither", "|g|shape"}) {
    transforms += scene.Kind(At(scene, path)) == NodeKind::kTransform ? '1' : '0';
  }
  EXPECT_EQ(transforms, "1111100");
  EXPECT_EQ(scene.ValuesAt(At(scene, "|g|h"), 0).translate[0], 2);
}

TEST(SceneReading, FindsNodesByShortPartialAndFullPathsAndNamespaces) {
  const Scene scene = Read(
      "createNode transform -name 'a';\ncreateNode transform -n 'b';\n"
      "createNode joint -n 'NS:in:jaw' -p 'a';\ncreateNode joint -p 'b' -n 'jaw';\n"
      "createNode joint -n 'jaw' -p '|a|NS:in:jaw';\nsetAttr 'b|jaw.tx' 1;\n"
      "setAttr '|a|NS:in:jaw|jaw.translateX' 2;\nsetAttr ':NS:in:jaw.tx' 3;\n"
      "select -ne 'b|jaw';\nsetAttr '.ty' 4;\nsetAttr 'jaw.tz' 5;\n");
  const auto translate = [&scene](const char* path) {
    return scene.ValuesAt(At(scene, path), 0).translate;
  };
  EXPECT_EQ(translate("|b|jaw"), (Vector{1, 4, 0}));
  EXPECT_EQ(translate("|a|NS:in:jaw|jaw"), (Vector{2, 0, 0}));
  EXPECT_EQ(translate("|a|NS:in:jaw"), (Vector{3, 0, 0}));
  ASSERT_EQ(scene.ReadingNotes().size(), 1u);
  EXPECT_EQ(scene.ReadingNotes()[0],
            "test.ma:14: more than one node is named \"jaw\"; the statement is passed over");
}

TEST(SceneReading, NamesNodesAsTheHostDoes) {
  const Scene scene = Read(
      "createNode joint -n 'a'; createNode joint -n 'a'; createNode joint -n 'a'; "
      "createNode joint; createNode joint -n ''; createNode joint -n 'a' -p 'a1'; "
      "createNode lambert -n 'x'; createNode joint -n 'x'; createNode joint -n 'old'; "
      "rename -uid '89DBF2A6'; rename 'old' 'new'; setAttr 'new.tx' 7;");
  EXPECT_EQ(OwnPaths(scene),
            (Paths{"|a", "|a1", "|a1|a", "|a2", "|joint1", "|joint2", "|x1", "|new"}));
  EXPECT_EQ(scene.ValuesAt(At(scene, "|new"), 0).translate[0], 7);
}

TEST(SceneReading, GivesTheShortestNameThatIsUnique) {
  const Scene scene = Read(
      "createNode joint -n 'a'; createNode joint -n 'b' -p 'a'; createNode joint -n 'c' -p 'b'; "
      "createNode joint -n 'd'; createNode joint -n 'c' -p 'd'; createNode joint -n 'a' -p 'd'; "
      "createNode joint -n 'c' -p '|d|a';");
  Paths names;
  for (PathId i = 9; i < scene.PathCount(); ++i)
    names.push_back(scene.ShortestName(i));
  EXPECT_EQ(names, (Paths{"|a", "b", "b|c", "d", "d|c", "d|a", "a|c"}));
}

TEST(SceneReading, GivesTheFullPathOfANameThatVeryManyShare) {
  for (const auto& [rivals, name] :
       {std::pair<std::size_t, const char*>(kMaxRivals, "p0|a"), {kMaxRivals + 1, "|p0|a"}}) {
    std::string text;
    for (std::size_t i = 0; i <= rivals; ++i)
      text += "createNode joint -n 'p" + std::to_string(i) + "'; createNode joint -n 'a' -p 'p" +
              std::to_string(i) + "';";
    const Scene scene = Read(text);
    EXPECT_EQ(scene.ShortestName(scene.FirstPath(At(scene, "|p0|a"))), name);
  }
}

TEST(SceneReading, MovesAndInstancesNodes) {
  const Scene scene = Read(
      "createNode transform -n 'a'; createNode transform -n 'x' -p 'a'; "
      "createNode mesh -n 'm' -p 'x'; createNode transform -n 'b'; createNode transform -n 'c'; "
      "createNode transform -n 'd' -p 'b'; parent -s -nc -r -add '|a|x' 'b'; parent 'c' 'a'; "
      "parent -w 'd';");
  EXPECT_EQ(OwnPaths(scene), (Paths{"|a", "|a|x", "|a|x|m", "|a|c", "|b", "|b|x", "|b|x|m", "|d"}));
  EXPECT_EQ(At(scene, "|b|x"), At(scene, "|a|x"));
  EXPECT_EQ(scene.FullPath(scene.FirstPath(At(scene, "|b|x|m"))), "|a|x|m");
  EXPECT_EQ(scene.ShortestName(scene.FirstPath(At(scene, "|a|x|m"))), "a|x|m");
}

TEST(SceneReading, RenamesAndMovesEachPathOfAnInstance) {
  const Scene scene = Read(
      "createNode transform -n 'a'; createNode joint -n 'x' -p 'a'; createNode transform -n 'b'; "
      "createNode joint -n 'z' -p 'b'; parent -s -nc -r -add '|a|x' 'b'; rename '|a|x' 'y'; "
      "setAttr '|b|y.tx' 3; createNode joint -n 'c' -p '|b|y'; rename '|a|y' 'z'; "
      "parent -w -r '|b|z1'; createNode transform -n 'd'; createNode joint -n 'z1' -p 'd'; "
      "parent -r -add '|a|z1' 'd'; parent -r '|a|z2' 'd';");
  EXPECT_TRUE(scene.ReadingNotes().empty());
  EXPECT_EQ(OwnPaths(scene), (Paths{"|a", "|a|z2", "|a|z2|c", "|b", "|b|z", "|z2", "|z2|c", "|d",
                                    "|d|z1", "|d|z2", "|d|z2|c"}));
  EXPECT_EQ(scene.ValuesAt(At(scene, "|a|z2"), 0).translate[0], 3);
}

TEST(SceneReading, NotesThatAMovedNodeKeepsItsLocalValues) {
  const Scene scene = Read(
      "createNode joint -n 'a';\ncreateNode joint -n 'b';\ncreateNode joint -n 'c';\n"
      "parent 'b' 'a';\nparent -r 'c' 'a';\nparent 'b' 'a';\nparent -w 'c';\n");
  const std::string end =
      " keeps its local values under its new parent, not its place in the world";
  EXPECT_EQ(scene.ReadingNotes(), (Paths{"test.ma:7: \"b\"" + end, "test.ma:10: \"c\"" + end}));
}

TEST(SceneReading, RefusesRingsAndInstancesWithoutEnd) {
  EXPECT_EQ(RefusalOf(kHeader + std::string("createNode joint -n \"a\";createNode joint -n \"b\" "
                                            "-p \"a\";parent \"a\" \"b\";")),
            "test.ma: \"a\" is parented in a ring");
  std::string text = std::string(kHeader) + "createNode transform -n \"x0\";\n";
  for (int i = 1; i < 60; ++i) {
    const std::string x = "x" + std::to_string(i);
    const std::string above = "x" + std::to_string(i - 1);
    const std::string y = "y" + std::to_string(i);
    text += "createNode transform -n \"" + x + "\" -p \"" + above + "\";\n";
    text += "createNode transform -n \"" + y + "\" -p \"" + above + "\";\n";
    if (i > 1) text += "parent -add \"" + x + "\" \"y" + std::to_string(i - 1) + "\";\n";
  }
  EXPECT_NE(RefusalOf(text).find("instances make too many paths"), std::string::npos);
}

TEST(SceneReading, GoesDeepWithoutRecursion) {
  std::string text;
  for (int i = 1; i <= 100000; ++i) {
    text += "createNode transform -n \"n" + std::to_string(i) + "\"";
    if (i > 1) text += " -p \"n" + std::to_string(i - 1) + "\"";
    text += ";\n";
  }
  EXPECT_EQ(Read(text).PathCount(), 100009u);
}

TEST(SceneReading, KnowsUnitsAndTheStartTime) {
  const Scene scene = Scene::Parse(
      "currentUnit -linear meter -angle radian -time ntsc;\ncreateNode joint -n \"j\";\n"
      "setAttr \".tx\" 2;\nsetAttr \".rx\" 0.5;\nselect -ne :time1;\nsetAttr -av \".o\" 12.5;\n",
      "test.ma");
  EXPECT_EQ(scene.TimeUnit(), "ntsc");
  EXPECT_EQ(scene.FramesPerSecond(), 30);
  EXPECT_EQ(scene.CentimetresPerUnit(), 100);
  EXPECT_EQ(scene.StartTime(), 12.5);
  EXPECT_EQ(scene.ValuesAt(At(scene, "|j"), 0).translate[0], 200);
  EXPECT_EQ(scene.ValuesAt(At(scene, "|j"), 0).rotate[0], 0.5);

  const Scene bare = Scene::Parse("createNode joint -n \"j\";", "test.ma");
  EXPECT_EQ(bare.TimeUnit(), "film");
  EXPECT_EQ(bare.StartTime(), 1);
  for (const auto& [unit, rate] :
       {std::pair{"23.976fps", 23.976}, std::pair{"29.97fps", 29.97}, std::pair{"29.97df", 29.97},
        std::pair{"47.952fps", 47.952}, std::pair{"59.94fps", 59.94}}) {
    const std::string text = std::string("currentUnit -t ") + unit + ";";
    EXPECT_EQ(Scene::Parse(text, "t").FramesPerSecond(), rate) << unit;
  }
  EXPECT_EQ(Scene::Parse("currentUnit -t millisec;", "t").FramesPerSecond(), 1000);
  const Scene odd = Scene::Parse("currentUnit -t nonsense -l 3;", "t.ma");
  EXPECT_EQ(odd.FramesPerSecond(), 24);
  ASSERT_EQ(odd.ReadingNotes().size(), 2u);
  EXPECT_EQ(odd.ReadingNotes()[0],
            "t.ma:1: the time unit \"nonsense\" is not known and is passed over");
}

TEST(SceneReading, RefusesWhatIsNoSceneWithASentence) {
  EXPECT_EQ(RefusalOf(""), "test.ma: the file is empty");
  EXPECT_EQ(RefusalOf(" \r\n\t"), "test.ma: the file is empty");
  EXPECT_EQ(RefusalOf("FOR4\x10\x20Maya"), "test.ma: a binary scene, not a Maya ASCII one");
  EXPECT_EQ(RefusalOf("FOR8...."), "test.ma: a binary scene, not a Maya ASCII one");
  EXPECT_EQ(RefusalOf("{\"json\": \"text\"}"), "test.ma: not a Maya ASCII scene");
  EXPECT_EQ(RefusalOf("Dear all,\nwe're done; bye"), "test.ma: not a Maya ASCII scene");
  EXPECT_EQ(RefusalOf("createNode joint;\nsetAttr \".tx\" 1"),
            "test.ma:2: the file ends inside a statement");
  EXPECT_EQ(RefusalOf("//Maya ASCII 8.0 scene\n\ncreateNode joint -n \"j"),
            "test.ma:3: a string is not closed on its line");
  EXPECT_EQ(RefusalOf("//Maya ASCII 8.0 scene\n"), "");
  EXPECT_THROW(Scene::Open("no such file.ma"), SceneError);
}

TEST(SceneReading, NotesWhatItPassesOver) {
  const Scene scene = Read(
      "createNode joint -n 'j' -p 'gone';\nsetAttr '.tx' (3 * 4);\nsetAttr '.ro' 9;\n"
      "python 'x';\npython 'y';\nfile -rdi 1 -ns 'r' -rfn 'rRN' 'c:/a.ma';\n"
      "file -r -ns 'r' -dr 1 -rfn 'rRN' -typ 'mayaAscii' 'c:/a.ma';\n");
  EXPECT_EQ(OwnPaths(scene), Paths{"|j"});
  EXPECT_EQ(scene.References(), Paths{"c:/a.ma"});
  EXPECT_EQ(scene.ReadingNotes(),
            (Paths{"test.ma:4: the parent \"gone\" is not in the file; the world takes its place",
                   "test.ma:5: a value of \"j.translateX\" is not understood and is passed over",
                   "test.ma:6: a value of \"j.rotateOrder\" is not understood and is passed over",
                   "test.ma:7: \"python\" is no command of a scene file and is passed over"}));
}

TEST(SceneReading, KeepsANumberOfNotesOnly) {
  std::string text;
  for (int i = 0; i < 500; ++i)
    text += "createNode joint -n \"j\" -p \"gone\";\n";
  const Scene scene = Read(text);
  EXPECT_EQ(scene.ReadingNotes().size(), 101u);
  EXPECT_EQ(scene.ReadingNotes().back(), "test.ma: 400 more were left out");
}

}  // namespace
}  // namespace lipvane::standalone
