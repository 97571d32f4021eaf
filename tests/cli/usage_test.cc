#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <sstream>

#include "tests/cli/cli_test.h"

namespace lipvane::test {
namespace {

TEST_F(CliTest, HelpAndVersionGoToStandardOutput) {
  const Refusals cases = {{{"--help"}, "Usage:"},
                          {{"run", "--help"}, "--report"},
                          {{"inspect", "--help"}, "--json"},
                          {{"check", "--help"}, "--scene"},
                          {{"play", "--help"}, "--at"},
                          {{"speak", "--help"}, "--tier"},
                          {{"bake", "--help"}, "--start"},
                          {{"map", "--help"}, "CHARACTER"},
                          {{"plot", "--help"}, "TIMING"},
                          {{"--version"}, "lipvane "}};
  for (const auto& [arguments, part] : cases) {
    const ProcessResult result = Lipvane(arguments);
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(Has(result.out, part)) << result.out;
    EXPECT_EQ(result.err, "");
  }
}

TEST_F(CliTest, HelpFitsTheTerminalAndIsASubcommandToo) {
  for (const std::string name : {"", "run", "speak", "plot"}) {
    for (const std::size_t columns : std::vector<std::size_t>{40, 60, 80, 100}) {
      const std::string variable = "COLUMNS=" + std::to_string(columns);
      const auto help = [&](const Arguments& arguments) {
        Arguments all = {variable, LIPVANE_BINARY};
        all.insert(all.end(), arguments.begin(), arguments.end());
        return RunProcess("/usr/bin/env", all).out;
      };
      const std::string text = help(name.empty() ? Arguments{"help"} : Arguments{"help", name});
      EXPECT_EQ(text, help(name.empty() ? Arguments{"-h"} : Arguments{name, "-h"}));
      std::size_t longest = 0;
      std::istringstream lines(text);
      for (std::string line; std::getline(lines, line);)
        longest = std::max(longest, line.size());
      EXPECT_LE(longest, columns) << text;
      EXPECT_GT(longest, columns - 15) << text;
    }
  }
}

TEST_F(CliTest, WithoutArgumentsTheHelpIsWrongUsage) {
  const ProcessResult result = Lipvane({});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(result.err, Lipvane({"--help"}).out);
}

TEST_F(CliTest, WrongUsageIsStatusTwoAndSaysWhatIsAccepted) {
  const Refusals cases = {
      {{"frobnicate", "--x"}, "there is no subcommand \"frobnicate\""},
      {{"bakee"}, "there is no subcommand \"bakee\"; did you mean \"bake\"?"},
      {{"help", "bakee"}, "there is no subcommand \"bakee\"; did you mean \"bake\"?"},
      {{"run"}, "SCENE is required"},
      {{"run", "a.ma"}, "there is nothing to do: give -e, -f, -o or --report"},
      {{"run", "a.ma", "-e"}, "-e needs a value: -e MEL"},
      {{"run", "a.ma", "-o", "b", "-o", "c"}, "-o is given 2 times"},
      {{"run", "a.ma", "-reprot", "b"}, "unknown option \"-reprot\"; did you mean \"--report\"?"},
      {{"run", "a.ma", "-o", "b.ma.bak"},
       "-o: b.ma.bak ends in .bak; what can be written: .ma (Maya ASCII scene)"},
      {{"run", "a.ma", "--report", "r.csv"},
       "--report: r.csv ends in .csv; what can be written: .json (what happened)"},
      {{"run", "a.ma", "-o", ""}, "-o: needs the name of a file"},
      {{"run", "a.ma", "--report", ""}, "--report: needs the name of a file"},
      {{"run", "a.ma", "-o", "./b", "--report", "b"}, "-o and --report: name the same file, ./b"},
      {{"run", "a.ma", "-o", "-", "--report", "-"}, "-o and --report: name the same file, -"},
      {{"run", "a.ma", "--report", "a.ma"}, "--report: names a file that is read, a.ma"},
      {{"run", "a.ma", "-f", "./s", "--report", "s"}, "--report: names a file that is read, s"},
      {{"run", "a.ma", "-f", "s", "-o", "s"}, "-o: names a file that is read, s"},
      {{"run", "-", "-f", "-"}, "-: is standard input, which only one file can be"},
      {{"check", "-", "--scene", "-"}, "-: is standard input, which only one file can be"},
      {{"inspect"}, "FILE is required"},
      {{"inspect", "a", "--jsno=1"}, "unknown option \"--jsno=1\"; did you mean \"--json\"?"},
      {{"check"}, "FILE is required"},
      {{"check", "a", "--scene", ""}, "--scene: needs the name of a file"},
      {{"play", "a"}, "LTF is required"},
      {{"play", "--fsp", "30", "a", "b"}, "unknown option \"--fsp\"; did you mean \"--fps\"?"},
      {{"play", "a", "b", "--fps"}, "--fps needs a value: --fps N"},
      {{"play", "a", "b", "-o", "c.TXT"},
       "-o: c.TXT ends in .txt; what can be written: .json (frames as JSON), .csv (frames as a "
       "table)"},
      {{"play", "a", "b", "--fps", "0"},
       "--fps: \"0\" is no rate: it is from 0.000001 to 1000000000"},
      {{"play", "a", "b", "--fps", "fast"}, "--fps: \"fast\" is not a number"},
      {{"play", "a", "b", "--fps", "30", "--at", "5"}, "--fps excludes --at"},
      {{"play", "a", "b", "--at", "1,,2"}, "--at: \"\" is not a number"},
      {{"play", "a", "b", "--at", "1, 2"}, "--at: \" 2\" is not a number"},
      {{"play", "a", "b", "--at", "inf"}, "--at: \"inf\" is not a number"},
      {{"play", "a", "b", "--ticks-per-second", "-1"},
       "--ticks-per-second: \"-1\" is no rate: it is from 0.000001 to 1000000000"},
      {{"play", "a", "b", "-o", ""}, "-o: needs the name of a file"},
      {{"play", "a", "b", "-o", "./b"}, "-o: names a file that is read, ./b"},
      {{"bake", "a", "b"}, "LTF and -o are required"},
      {{"bake", "a", "b", "c", "--output", "d"},
       "unknown option \"--output\"; did you mean \"-o\"?"},
      {{"bake", "a", "b", "c", "-o", "d.fbx"},
       "-o: d.fbx ends in .fbx; what can be written: .ma (Maya ASCII scene), .mel (script of "
       "keys)"},
      {{"bake", "a", "b", "c", "-o", "./c"}, "-o: names a file that is read, ./c"},
      {{"bake", "a", "b", "c", "-o", "d", "--start", "nan"}, "--start: \"nan\" is not a number"},
      {{"bake", "a", "b", "c", "-o", "d", "--fps", "-5"},
       "--fps: \"-5\" is no rate: it is from 0.000001 to 1000000000"},
      {{"bake", "a", "b", "c", "-o", "d", "--start", "1e10"},
       "--start: \"1e10\" is no frame: it is from -1000000000 to 1000000000"},
      {{"speak", "a", "b", "-o", "c.json"},
       "-o: c.json ends in .json; what can be written: .ltf (animation file)"},
      {{"map"}, "LBP and CHARACTER are required"},
      {{"map", "a", "b", "c", "d"}, "\"c\" and \"d\" are too many"},
      {{"map", "--", "a", "b", "-c"}, "\"-c\" is too many"},
      {{"map", "a", "b", "-o", "c.ltf"},
       "-o: c.ltf ends in .ltf; what can be written: .map (phoneme mapping file)"},
      {{"map", "a", ""}, "CHARACTER: needs a name of one line"},
      {{"map", "a", "b\nc"}, "CHARACTER: needs a name of one line"},
      {{"map", "./a.map", "a"}, "-o: names a file that is read, a.map"},
      {{"plot"}, "LTF is required"},
      {{"plot", "a", "-o", "a.png"}, "-o: a.png ends in .png; what can be written: .svg (picture)"},
      {{"plot", "a", "--tier", "phones"}, "--tier requires --timing"},
      {{"plot", "a", "--fps", "24"}, "--fps requires --timing"},
      {{"plot", "a", "b", "--fps", "0"},
       "--fps: \"0\" is no rate: it is from 0.000001 to 1000000000"},
      {{"plot", "a", "b", "--tier", ""}, "--tier: needs a name"},
      {{"plot", "a", "--timing", ""}, "--timing: needs the name of a file"},
      {{"plot", "a", "b", "-o", "./b"}, "-o: names a file that is read, ./b"}};
  for (const auto& [arguments, error] : cases) {
    const ProcessResult result = Lipvane(arguments);
    EXPECT_EQ(result.status, 2) << error;
    const bool isKnown = !Has(error, "no subcommand");
    const std::string usage =
        isKnown ? "Usage: lipvane " + arguments[0] + " "
                : "Subcommands: run, inspect, check, play, speak, bake, map, plot, help\n";
    EXPECT_EQ(result.err.substr(0, result.err.find('\n') + 1 + usage.size()),
              "Error: " + error + "\n" + usage);
    EXPECT_EQ(result.out, "");
  }
}

TEST_F(CliTest, FilesInTheWrongPlaceAreToldByWhatTheyHold) {
  folder_.Make("face.ma", kFaceScene);
  folder_.Make("face.lbp", LbpText({"lip"}, {{{}}}));
  folder_.Make("line.ltf", "LTF\n1\n0\n0\n0\n");
  folder_.Make("line.txt", "0 1 AA\n");
  folder_.Make("oddly named.ltf", "hello\n");
  const Refusals cases = {
      {{"bake", "face.lbp", "face.ma", "line.ltf", "-o", "a"},
       "face.lbp is an LBP file; the Maya scene comes first\n"
       "Error: face.ma is a Maya scene; the LBP file comes second"},
      {{"play", "face.lbp", "face.ma"}, "face.ma is a Maya scene; the LTF file comes second"},
      {{"plot", "line.ltf", "--timing", "line.ltf"},
       "line.ltf is an LTF file; the timing file comes second"},
      {{"speak", "line.txt", "line.txt"},
       "line.txt is a timing file (table); the LBP file comes second"},
      {{"speak", "line.txt", "face.lbp", "--shapes", "face.lbp"},
       "face.lbp is an LBP file; --shapes takes rows of mouth shapes"},
      {{"run", "face.ma", "-f", "face.ma"}, "face.ma is a Maya scene; -f takes command lines"},
      {{"map", "Face", "face.lbp"},
       "face.lbp is an LBP file; the LBP file comes first, then CHARACTER"},
      {{"play", "oddly named.ltf", "line.ltf"}, "oddly named.ltf:1: the version is 0, not 2"}};
  for (const auto& [arguments, error] : cases)
    ExpectFailure(arguments, error);
}

TEST_F(CliTest, ADashIsStandardInputWhereverAFileIsRead) {
  folder_.Make("face.ma", kFaceScene);
  folder_.Make("face.lbp", LbpText({"lip"}, {{{}}}));
  folder_.Make("line.ltf", "LTF\n1\n0\n0\n0\n");
  folder_.Make("line.txt", "0 1 Sil\n");
  folder_.Make("shapes", "A 0\n");
  folder_.Make("cut.ltf", "LTF\n");
  folder_.Make("lines.mel", "select lip\n");
  const std::string commands[] = {"bake @face.ma face.lbp line.ltf -o -",
                                  "bake face.ma @face.lbp line.ltf -o -",
                                  "bake face.ma face.lbp @line.ltf -o -",
                                  "run face.ma -f @lines.mel --report -",
                                  "check @face.lbp --scene face.ma",
                                  "check face.lbp --scene @face.ma",
                                  "inspect @face.lbp",
                                  "map @face.lbp Face -o -",
                                  "plot @line.ltf line.txt",
                                  "plot line.ltf --timing @line.txt",
                                  "speak @line.txt face.lbp",
                                  "speak line.txt face.lbp --shapes @shapes",
                                  "play face.lbp @cut.ltf"};
  for (const std::string& command : commands) {
    const std::size_t begin = command.find('@');
    const std::string name = command.substr(begin + 1, command.find(' ', begin) - begin - 1);
    const auto run = [&](const std::string& argument) {
      const std::string line = std::string(command).replace(begin, name.size() + 1, argument);
      ProcessResult result =
          RunProcess("/bin/sh", {"-c", LIPVANE_BINARY " " + line + " < " + name});
      // Results that name what they are made from.
      for (std::string* text : {&result.out, &result.err}) {
        for (std::size_t at; (at = text->find(name)) != std::string::npos;)
          text->replace(at, name.size(), "standard input");
      }
      return result;
    };
    const ProcessResult named = run(name);
    const ProcessResult piped = run("-");
    EXPECT_EQ(piped.status, named.status) << command;
    EXPECT_EQ(piped.out, named.out) << command;
    EXPECT_EQ(piped.err, named.err) << command;
    EXPECT_NE(piped.out + piped.err, "") << command;
  }
}

TEST_F(CliTest, AResultThatCannotBeWrittenIsAFailure) {
  const std::string scene = folder_.Make("face.ma", kFaceScene);
  const std::string lbp = folder_.Make("face.lbp", LbpText({"lip"}, {{{}}}));
  const std::string ltf = folder_.Make("line.ltf", "LTF\n1\n0\n0\n0\n");
  if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "no device that is full";
  for (const std::string& command :
       {"inspect " + lbp, "check " + lbp, "play " + lbp + " " + ltf, "map " + lbp + " Face -o -",
        "plot " + ltf, "bake " + scene + " " + lbp + " " + ltf + " -o -", "run " + scene + " -o -",
        "run " + scene + " --report -"}) {
    const ProcessResult result =
        RunProcess("/bin/sh", {"-c", LIPVANE_BINARY " " + command + " > /dev/full"});
    EXPECT_EQ(result.status, 1) << command;
    EXPECT_EQ(result.err, "Error: standard output: it could not be written\n");
  }
}

}  // namespace
}  // namespace lipvane::test
