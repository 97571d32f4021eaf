// From the scene to the frames: the numbers that were kept, and every byte in each locale.

#include <cstdlib>
#include <filesystem>
#include <map>

#include "tests/cli/cli_test.h"
#include "tests/support/near_text.h"

namespace lipvane::test {
namespace {

namespace fs = std::filesystem;

const std::string kValues = LIPVANE_SOURCE_DIR "/tests/golden/values/";

class SameAnswer : public CliTest {
 protected:
  /// What each step leaves: the files by name, and what was printed.
  std::map<std::string, std::string> Answers(const std::string& program,
                                             const std::string& environment) const {
    std::string bones = FileContent(kExamples + "bones.txt");
    bones.erase(bones.find('\n'));
    const std::string exporting =
        "demBonesExportPoses -bl \"" + bones + "\" -hb head -np 20 -lbp \"face.lbp\"";
    fs::remove_all("made");
    fs::create_directory("made");
    std::string script = "cd made && step() { " + environment + " " + program + " \"$@\"; }\n";
    script +=
        "step run " + kExamples + "face_poses.ma -e '" + exporting + "' --report export.json\n";
    script += "step run " + kExamples + "face_rig.ma -e 'facialAnim -import -lbp \"face.lbp\"' " +
              "-o keyed.ma --report import.json\n";
    script += "step speak " + kExamples + "hello.TextGrid face.lbp -o spoken.ltf\n";
    // In Turkish this letter has a capital of its own.
    script += "echo '0 1 ih1' >small.txt\nstep speak small.txt face.lbp -o small.ltf\n";
    script += "step play face.lbp " + kExamples + "hello.ltf --fps 4 -o hello.csv\n";
    script += "step play face.lbp spoken.ltf --fps 4 -o spoken.csv\n";
    script += "step play face.lbp spoken.ltf --at 0.5,1234.5 -o spoken.json\n";
    script += "step bake " + kExamples + "face_rig.ma face.lbp spoken.ltf --fps 12.5 -o baked.ma\n";
    script += "step plot spoken.ltf " + kExamples + "hello.TextGrid -o spoken.svg\n";
    script +=
        "step inspect face.lbp --json >inspected.json\nstep inspect keyed.ma >inspected.txt\n";
    script += "step check face.lbp spoken.ltf >checked.txt\nstep map face.lbp INFINITY\n";
    const ProcessResult result = RunProcess("/bin/sh", {"-c", script});
    std::map<std::string, std::string> answers{{"printed", result.out + result.err},
                                               {"status", std::to_string(result.status)}};
    for (const auto& entry : fs::directory_iterator("made"))
      answers[entry.path().filename().string()] = FileContent(entry.path().string());
    return answers;
  }
};

TEST_F(SameAnswer, TheExamplesMakeWhatWasKept) {
  const auto answers = Answers(LIPVANE_BINARY, "");
  EXPECT_EQ(answers.size(), 18U);
  EXPECT_EQ(answers.at("spoken.ltf"), FileContent(kValues + "spoken.ltf"));
  for (const char* name : {"face.lbp", "hello.csv", "spoken.csv"}) {
    EXPECT_TRUE(SameButForRounding(answers.at(name), FileContent(kValues + name))) << name;
  }
}

TEST_F(SameAnswer, InEveryLocale) {
  if (std::system("command -v localedef >/dev/null") != 0) GTEST_SKIP() << "no locales of glibc";
  const auto expected = Answers(LIPVANE_BINARY, "LC_ALL=C");
  for (const std::string language : {"de_DE", "tr_TR"}) {
    ASSERT_EQ(
        std::system(("localedef -i " + language + " -f UTF-8 ./" + language + ".UTF-8").c_str()), 0)
        << "scripts/setup installs what makes locales";
    // glibc forgets to free what it reads of LOCPATH.
    const auto answers =
        Answers(LIPVANE_IN_LOCALE, "ASAN_OPTIONS=detect_leaks=0 LOCPATH=" + folder_.Path() +
                                       " LC_ALL=" + language + ".UTF-8");
    ASSERT_EQ(answers.size(), expected.size()) << answers.at("printed");
    for (const auto& [name, bytes] : expected)
      EXPECT_TRUE(answers.at(name) == bytes) << language << ": " << name << " differs";
  }
}

}  // namespace
}  // namespace lipvane::test
