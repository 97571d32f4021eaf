#include "tests/cli/cli_test.h"

namespace lipvane::test {
namespace {

class RunTest : public CliTest {
 protected:
  ProcessResult Run(const Arguments& more) { return Lipvane({"run", scene_}, more); }
  /// The report of a run that ends with this status.
  json Report(int status, Arguments more) {
    more.insert(more.end(), {"--report", "-"});
    const ProcessResult result = Run(more);
    EXPECT_EQ(result.status, status) << result.err;
    return json::parse(result.out);
  }
  std::string Export() const {
    return "demBonesExportPoses -bl \"jaw lip\" -hb head -np 2 -lbp \"" + lbp_ + "\"";
  }

  std::string scene_ = folder_.Make("face.ma", kFaceScene);
  std::string lbp_ = folder_.Path("face.lbp");
};

TEST_F(RunTest, ExportsImportsAndSaves) {
  const std::string saved = folder_.Path("keyed.ma");
  const ProcessResult result = Run({"-e", Export(), "-o", saved});
  ASSERT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(folder_.Content("keyed.ma"), kFaceScene) << "nothing was changed";

  // In place.
  const json report = Report(0, {"-e", "facialAnim -import -lbp \"" + lbp_ + "\"", "-o", scene_});
  EXPECT_EQ(report["curves"].size(), 27U);  // head's, jaw's and lip's
  EXPECT_EQ(report["curves"][0],
            json::parse(R"({"node": "|head", "attribute": "translateX", "keys": []})"));
  const json again = json::parse(Lipvane({"inspect", scene_, "--json"}).out);
  // The file's translations are centimetres and the scene's metres.
  EXPECT_EQ(again["curves"][0], json::parse(R"({"node": "|head|jaw", "attribute": "translateX",
                           "keys": [[0.0, 1.5], [10.0, 2.0]]})"));
}

TEST_F(RunTest, RunsScriptsInTheOrderGivenAndReports) {
  const std::string first = folder_.Make("1.mel", "select lip // one\ncurrentTime 1\n");
  const std::string second = folder_.Make("2.mel", "select -add \"|right|eye\";");
  const std::string between = "currentTime 2; select jaw";
  const json report = Report(0, {"-f", first, "-e", between, "-f", second, "-e", "currentTime -3"});
  ASSERT_EQ(report["commands"].size(), 6U);
  EXPECT_EQ(report["commands"][4], json::parse(R"({"line": "select -add \"|right|eye\"",
                                                   "status": "success", "messages": []})"));
  EXPECT_EQ(report["selection"], json::parse(R"(["jaw", "right|eye"])"));
  EXPECT_EQ(report["currentTime"], -3.0);
  EXPECT_EQ(report["curves"][0], json::parse(R"({"node": "|head|jaw", "attribute": "translateX",
                            "keys": [[0.0, 1.5], [10.0, 2.0]]})"));
}

TEST_F(RunTest, AFailureStopsTheRunAndSavesNothing) {
  const std::string out = folder_.Path("out.ma");
  const std::string report = folder_.Path("report.json");
  const ProcessResult result =
      Run({"-e", "select jaw; select nose; currentTime 7", "-o", out, "--report", report});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(result.err, "Error: No object matches name: nose\n");
  EXPECT_FALSE(folder_.Has("out.ma"));
  const json written = json::parse(folder_.Content("report.json"));
  EXPECT_EQ(written["currentTime"], 5.0);
  ASSERT_EQ(written["commands"].size(), 2U);
  EXPECT_EQ(written["commands"][1], json::parse(R"({"line": "select nose", "status": "failure",
      "messages": [{"kind": "error", "text": "No object matches name: nose"}]})"));
}

TEST_F(RunTest, AnErrorShownByACommandThatSucceedsStopsTooAndOtherMessagesDoNot) {
  const json failed = Report(1, {"-e", "facialAnim -imp -lbp none.lbp; currentTime 7"});
  EXPECT_EQ(failed["commands"].size(), 1U);
  EXPECT_EQ(failed["commands"][0]["status"], "success");
  EXPECT_EQ(failed["commands"][0]["messages"], json::parse(R"([{"kind": "error",
                             "text": "cannot parse selected LBP file: none.lbp"}])"));

  const std::string lbp = folder_.Make("more.lbp", LbpText({"jaw", "nose"}, {{{}, {}}}));
  const ProcessResult warned = Run({"-e", "facialAnim -import -lbp \"" + lbp + "\""});
  EXPECT_EQ(warned.status, 0);
  EXPECT_EQ(warned.err,
            "Warning: Bone(s) in the LBP file were not found.  Make sure your LBP file is "
            "correct.\nNote: facialAnim: 1 of 2 bones of " +
                lbp + " got keys; not in the scene: \"nose\"\n");
  const ProcessResult boxed = Run({"-e", Export() + " -map \"\""});
  EXPECT_EQ(boxed.status, 1);
  EXPECT_EQ(boxed.err,
            "[Application Error] Must select a valid LBP file for mapping informaion.\n");
}

TEST_F(RunTest, NotesWhatCommandsLoseInSilence) {
  std::string spaced = "createNode joint -n \"a:b:jaw\";\ncreateNode joint -n \"a:b:lip\";\n";
  spaced = folder_.Make("spaced.ma", spaced);
  const auto pose = [&](const std::string& name, const std::vector<std::string>& bones, int poses) {
    const std::vector<BoneLine> lines(bones.size());
    return folder_.Make(name, LbpText(bones, {static_cast<std::size_t>(poses), lines}));
  };
  const std::string two = pose("two.lbp", {"jaw", "lip"}, 1);
  const std::string out = folder_.Path("o.lbp");
  const auto exports = [&](const std::string& bones) {
    return "demBonesExportPoses -np 1 -lbp \"" + out + "\" -hb lip -bl \"" + bones + "\"";
  };
  const auto imports = [](const std::string& file) {
    return "facialAnim -import -lbp \"" + file + "\"";
  };
  const std::string misread =
      ", so it cannot be read as it was meant: mend the list of bones and export again";
  const std::string in = "all are in the namespace \"a:b\": give --namespace a:b";
  std::string lost = FileContent(pose("lost.lbp", {"jaw", "lip"}, 2));
  lost = folder_.Make("lost.lbp", lost.erase(lost.find("lip -> parent"), 14));
  struct Case {
    std::string scene, line;
    std::vector<std::string> notes;
  };
  const std::vector<Case> cases = {
      {scene_, exports("jaw"), {}},
      {scene_,
       exports("jaww jaw nose"),
       {"2 of 4 bones match no joint: \"jaww\" (did you mean \"jaw\"?), \"nose\"; " + out +
        " counts bones that it has no lines for" + misread}},
      {scene_,
       exports("eye head"),
       {"1 of 3 bones matches several nodes: \"eye\" (2 times); " + out + " has a line for each" +
            misread,
        "1 of 3 bones matches no joint: \"head\" (a transform); an import gives no keys to what "
        "is no joint"}},
      {scene_,
       exports("world"),
       {"1 of 2 bones has no bone line: \"world\"; " + out + " lacks lines" + misread}},
      {scene_,
       "demBonesExportPoses -bl jaw -lbp \"" + out + "\"",
       {"1 of 2 bones matches no joint: the head bone, which is not given; " + out +
            " counts bones that it has no lines for" + misread,
        out + " has no poses: -numposes asks for none"}},
      {spaced, exports("jaw"), {"2 of 2 bones match no joint: \"jaw\", \"lip\"; " + in}},
      {scene_, imports(two), {"2 of 2 bones of " + two + " got keys"}},
      {spaced, imports(two), {"0 of 2 bones of " + two + " got keys: NOTHING WAS IMPORTED; " + in}},
      {scene_,
       imports(pose("odd.lbp", {"head", "eye"}, 1)),
       {"1 of 2 bones of " + folder_.Path("odd.lbp") +
        " got keys; no joint: \"head\"; more than "
        "once in the scene, where the last one got the keys: \"eye\""}},
      {scene_,
       imports(pose("none.lbp", {"jaw"}, 0)),
       {"0 of 1 bone of " + folder_.Path("none.lbp") +
        " got keys: NOTHING WAS IMPORTED; it reads as a file without poses"}},
      {scene_,
       imports(lost),
       {"1 of 2 bones of " + lost +
        " got keys; not in the scene: \"head_bone=h\"; it is misread: on line 47 the "
        "number of bones is 2, but 1 line follows in the hierarchy: lines are taken for what they "
        "are not"}},
      {scene_,
       "facialAnim -sel -lbp \"" + pose("last.lbp", {"jaw", "eye"}, 0) + "\"",
       {"nothing is selected, since the last bone of " + folder_.Path("last.lbp") +
        ", \"eye\", was selected before or is not in the scene exactly once"}}};
  for (const Case& one : cases) {
    scene_ = one.scene;
    const json report = Report(0, {"-e", one.line});
    std::vector<std::string> notes;
    for (const json& message : report["commands"][0]["messages"]) {
      if (message["kind"] != "note") continue;
      const std::string text = message["text"];
      notes.push_back(text.substr(text.find(": ") + 2));
      EXPECT_EQ(text.rfind(one.line.substr(0, one.line.find(' ')) + ": ", 0), 0U);
      EXPECT_TRUE(Has(Run({"-e", one.line}).err, "Note: " + text + "\n"));
    }
    EXPECT_EQ(notes, one.notes) << one.line;
  }
  scene_ = spaced;
  EXPECT_EQ(Report(0, {"-e", imports(two), "--namespace", ":a:b:"})["curves"][0]["node"],
            "|a:b:jaw");
}

TEST_F(RunTest, NamesWhatItDoesNotKnowAndWhatFailsInSilence) {
  const std::string silent = "demBonesExportPoses -np 1 -lbp \"/no/such/folder/x.lbp\"";
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"facialAnim -imprt",
       "facialAnim: unknown flag \"-imprt\"; did you mean \"-import\"? It accepts -m/-morph, "
       "-lbp/-lbpfile STRING, -ltf/-ltffile STRING, "
       "-exp/-expression STRING (any number of times), -imp/-import, -sel/-select\n"},
      {"polySphere",
       "unknown command \"polySphere\"; the commands are currentTime, "
       "demBonesExportPoses, facialAnim, getAttr, select, setKeyframe, undoInfo\n"},
      {silent, "-e 2: the command failed without a message: " + silent + "\n"}};
  for (const auto& [line, error] : cases) {
    const ProcessResult result = Run({"-e", "select jaw", "-e", line});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "Error: " + error);
  }
  EXPECT_EQ(Run({"-e", "demBonesExportPoses -lbp"}).err,
            "Note: demBonesExportPoses: flag -lbp/-lbpfile has no value: it is passed over\n"
            "Error: -e 1: the command failed without a message: demBonesExportPoses -lbp\n");
}

TEST_F(RunTest, TextThatIsNoCommandLineStopsBeforeTheFirstCommand) {
  const std::string script = folder_.Make("a.mel", "select jaw;\nselect $x;\n");
  const json report = Report(1, {"-e", Export(), "-f", script});
  ASSERT_EQ(report["commands"].size(), 1U);
  EXPECT_EQ(report["commands"][0]["line"], "select $x;");
  EXPECT_EQ(report["commands"][0]["status"], "failure");
  EXPECT_FALSE(folder_.Has("face.lbp"));
  EXPECT_EQ(Run({"-f", script}).err.rfind("Error: " + script + ":2: ", 0), 0U);
  EXPECT_EQ(Run({"-e", "select jaw", "-e", "select (x)"}).err.rfind("Error: -e 2: ", 0), 0U);
}

TEST_F(RunTest, ACommandOfAFileThatFailsIsNamedByItsPlace) {
  const std::string script = folder_.Make("a.mel", "select jaw;\n\nselect nose;\nselect jaw;\n");
  EXPECT_EQ(Run({"-f", script}).err, "Error: No object matches name: nose\nError: " + script +
                                         ":3: the command failed: select nose\n");
}

TEST_F(RunTest, FilesThatCannotBeUsedAreNamed) {
  const Refusals cases = {
      {{"-e", Export(), "-o", "/no/such/o.ma"}, "/no/such/o.ma: there is no folder /no/such"},
      {{"-e", Export(), "--report", "/no/such/r"}, "/no/such/r: there is no folder /no/such"}};
  for (const auto& [arguments, error] : cases) {
    ExpectFailure({"run", scene_}, error, arguments);
    EXPECT_FALSE(folder_.Has("face.lbp")) << "nothing runs when the result cannot be kept";
  }
  const std::string folder = folder_.Path(".");
  const std::string cut = folder_.Make("cut.ma", "a \"b");
  for (const Arguments& arguments :
       {Arguments{"run", scene_, "-o", folder}, {"run", cut, "--report", "-"}}) {
    const ProcessResult result = Lipvane(arguments);
    const std::string& named = arguments[2] == "-o" ? folder : arguments[1];
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err.rfind("Error: " + named + ":", 0), 0U) << result.err;
    EXPECT_EQ(result.out, "");
  }
}

}  // namespace
}  // namespace lipvane::test
