// What the world does to the command line: full disks, inputs of the wrong kind, signals. Whatever
// it is, an earlier result stays, nothing else is left in the folder, and status and message tell.

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <set>
#include <thread>

#include "tests/cli/cli_test.h"

namespace lipvane::test {
namespace {

namespace fs = std::filesystem;

constexpr char kOld[] = "old";

/// Every subcommand with every input that it reads; results go to "out".
const std::vector<Arguments> kJobs = {
    {"run", "face.ma", "-f", "a.mel", "-o", "out"},
    {"run", "face.ma", "-e", "select jaw", "--report", "out"},
    {"bake", "face.ma", "face.lbp", "line.ltf", "-o", "out"},
    {"play", "face.lbp", "line.ltf", "-o", "out"},
    {"play", "face.lbp", "line.ltf", "-o", "out.csv"},
    {"speak", "words.txt", "face.lbp", "--shapes", "shapes.txt", "-o", "out"},
    {"map", "face.lbp", "Face", "-o", "out"},
    {"plot", "line.ltf", "words.txt", "-o", "out"},
    {"inspect", "face.ma"},
    {"inspect", "line.ltf", "--json"},
    {"check", "face.lbp", "line.ltf", "--scene", "face.ma"}};

std::string CommandLine(const Arguments& job) {
  return test::CommandLine(LIPVANE_BINARY, job);
}

class FaultsTest : public CliTest {
 protected:
  FaultsTest() {
    folder_.Make("face.ma", kFaceScene);
    folder_.Make("a.mel", "select jaw;\n");
    folder_.Make("face.lbp", LbpText({"jaw", "lip"}, {{{}, {}}, {{{1, 2, 3}}, {}}}));
    AnimationOf("line.ltf", "3\n0 0 3000 1 3001 0");
    folder_.Make("words.txt", "0 1 A\n");
    folder_.Make("shapes.txt", "A 0.5\n");
    folder_.Make("out", kOld);
    folder_.Make("out.csv", kOld);
    fs::create_directory("folder");
    names_ = folder_.Names();
  }

  void ExpectNothingChanged(const std::string& what) const {
    EXPECT_EQ(folder_.Names(), names_) << what;
    EXPECT_EQ(folder_.Content("out"), kOld) << what;
    EXPECT_EQ(folder_.Content("out.csv"), kOld) << what;
  }
  static bool IsRead(const std::string& argument) {
    return argument.compare(0, 3, "out") != 0 && fs::is_regular_file(argument);
  }
  static bool Writes(const Arguments& job) { return job.back().compare(0, 3, "out") == 0; }

 private:
  std::set<std::string> names_;
};

TEST_F(FaultsTest, AnInputThatIsMissingOrAFolderIsNamed) {
  for (const Arguments& job : kJobs) {
    for (std::size_t i = 1; i < job.size(); ++i) {
      if (!IsRead(job[i])) continue;
      for (const auto& [wrong, reason] : {std::pair("missing", "No such file or directory"),
                                          std::pair("folder", "Is a directory")}) {
        Arguments faulty = job;
        faulty[i] = wrong;
        const ProcessResult result = Lipvane(faulty);
        EXPECT_EQ(result.status, 1) << CommandLine(faulty);
        EXPECT_EQ(result.err.rfind(std::string("Error: ") + wrong + ": " + reason + "\n", 0), 0U)
            << result.err;
      }
      ExpectNothingChanged(CommandLine(job) + " without " + job[i]);
    }
  }
}

// Also where two readers ask what a file is: a pipe is there to be read once.
TEST_F(FaultsTest, AnInputMayBeAPipe) {
  for (const Arguments& job : kJobs) {
    const auto run = [&] {
      const ProcessResult result = Lipvane(job);
      const std::string all = result.out + result.err + std::to_string(result.status) +
                              folder_.Content("out") + folder_.Content("out.csv");
      folder_.Make("out", kOld);
      folder_.Make("out.csv", kOld);
      return all;
    };
    const std::string expected = run();
    for (std::size_t i = 1; i < job.size(); ++i) {
      if (!IsRead(job[i])) continue;
      fs::rename(job[i], "held");
      ASSERT_EQ(mkfifo(job[i].c_str(), 0600), 0);
      std::thread writer([&] { RunProcess("/bin/sh", {"-c", "cat held > " + job[i]}); });
      EXPECT_EQ(run(), expected) << CommandLine(job) << " from a pipe: " << job[i];
      writer.join();
      fs::rename("held", job[i]);
    }
  }
}

TEST_F(FaultsTest, AFullDiskKeepsTheEarlierResult) {
  std::vector<std::pair<Arguments, std::string>> cases;
  for (const Arguments& job : kJobs) {
    if (Writes(job)) cases.emplace_back(job, job.back());
  }
  cases.emplace_back(
      Arguments{"run", "face.ma", "-e", "demBonesExportPoses -bl \"jaw\" -np 1 -lbp \"out\""},
      "cannot write LBP file: out");
  for (const auto& [job, what] : cases) {
    // A file that may not grow is a disk that is full, for whoever writes it. Standard error is a
    // pipe, which may.
    const ProcessResult result = RunProcess(
        "/bin/sh", {"-c", "(ulimit -f 0; " + CommandLine(job) + "; echo $?) 2>&1 | cat"});
    EXPECT_TRUE(Has(result.out, "Error: " + what + ": File too large\n1\n") ||
                Has(result.out,
                    "Error: " + what + ": Not all of it could be written; is the disk full?\n1\n"))
        << result.out;
    ExpectNothingChanged(CommandLine(job));
  }
}

TEST_F(FaultsTest, ASmallDiskKeepsTheEarlierResult) {
  // In a world of its own, where anybody may mount; not every system allows that.
  const std::string mount = "mount -t tmpfs -o size=16k none folder";
  if (RunProcess("/usr/bin/unshare", {"-rm", "/bin/sh", "-c", mount}).status != 0) {
    GTEST_SKIP() << "no disk can be made here";
  }
  const ProcessResult result = RunProcess(
      "/usr/bin/unshare",
      {"-rm", "/bin/sh", "-c",
       mount + " && echo old > folder/out.json && " +
           CommandLine({"play", "face.lbp", "line.ltf", "--fps", "200", "-o", "folder/out.json"}) +
           "; echo $?; ls -A folder; cat folder/out.json"});
  EXPECT_EQ(result.out, "1\nout.json\nold\n");
  EXPECT_EQ(result.err,
            "Error: folder/out.json: Not all of it could be written; is the disk full?\n");
}

// A file that is mounted keeps its name, and in a folder that is read-only no other can be made.
TEST_F(FaultsTest, AFileThatCannotBeReplacedIsWrittenInPlace) {
  const Arguments play = {"play", "face.lbp", "line.ltf", "--fps", "200", "-o", "folder/out"};
  const std::string whole = Lipvane({play.begin(), play.end() - 2}).out;
  folder_.Make("folder/out", "");
  const auto errorAfter = [&](const std::string& mount) {
    const std::string script = mount + " && " + CommandLine(play);
    return RunProcess("/usr/bin/unshare", {"-rm", "/bin/sh", "-c", script}).err;
  };
  for (const std::string how : {"", " && mount -o remount,bind,ro folder && ! touch folder/x"}) {
    folder_.Make("out", std::string(1'000'000, 'x'));
    const std::string said =
        errorAfter("mount --bind folder folder && mount --bind out folder/out" + how);
    if (Has(said, "mount: ") || Has(said, "unshare: ")) GTEST_SKIP() << said;
    EXPECT_FALSE(Has(said, "Error")) << said;
    EXPECT_TRUE(folder_.Content("out") == whole) << how;
    EXPECT_EQ(std::distance(fs::directory_iterator("folder"), {}), 1) << how;
  }
  // Only a part of it has room there.
  const std::string said = errorAfter(
      "mount -t tmpfs -o size=16k none /mnt && touch /mnt/out && mount --bind /mnt/out folder/out");
  EXPECT_TRUE(Has(said, "out: No space left on device (it had to be written in place,")) << said;
  const std::size_t at = std::min(said.rfind("folder/"), said.size());
  EXPECT_TRUE(folder_.Content(said.substr(at, said.rfind(')') - at)) == whole) << said;
}

/// A run of some seconds that is sent signals as soon as it writes.
class SignalTest : public FaultsTest {
 protected:
  /// The state that it ended in; -1 when it did not start to write.
  int Send(const std::vector<int>& signals, const std::vector<int>& ignored = {}) {
    const pid_t child = fork();
    if (child == 0) {
      for (const int signal : ignored)
        static_cast<void>(std::signal(signal, SIG_IGN));
      static_cast<void>(std::freopen("err", "w", stderr));
      execl(LIPVANE_BINARY, "lipvane", "play", "face.lbp", "line.ltf", "--fps", "300000", "-o",
            "out", nullptr);
      _exit(127);
    }
    int state = -1;
    while (waitpid(child, &state, WNOHANG) == 0) {
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
      const auto names = folder_.Names();
      if (!std::any_of(names.begin(), names.end(),
                       [](const std::string& name) { return name.rfind(".out", 0) == 0; })) {
        continue;
      }
      for (const int signal : signals)
        kill(child, signal);
      waitpid(child, &state, 0);
      err_ = folder_.Content("err");
      fs::remove("err");
      return state;
    }
    return -1;
  }
  std::string err_;
};

TEST_F(SignalTest, InMidSaveLeavesTheEarlierResultAlone) {
  const std::string said = "; out was not written\n";
  for (const auto& [signal, text] : {std::pair(SIGINT, "Error: interrupted by SIGINT" + said),
                                     std::pair(SIGTERM, "Error: interrupted by SIGTERM" + said),
                                     std::pair(SIGHUP, "Error: interrupted by SIGHUP" + said),
                                     std::pair(SIGXCPU, "Error: interrupted by SIGXCPU" + said),
                                     std::pair(SIGUSR1, "Error: interrupted by SIGUSR1" + said),
                                     std::pair(SIGPIPE, std::string())}) {
    const int state = Send({signal});
    EXPECT_TRUE(WIFSIGNALED(state) && WTERMSIG(state) == signal) << state << " " << text;
    EXPECT_EQ(err_, text);
    ExpectNothingChanged(text);
  }
}

TEST_F(SignalTest, WhatIsToBeIgnoredStaysIgnored) {
  const int state = Send({SIGHUP, SIGTERM}, {SIGHUP});
  EXPECT_TRUE(WIFSIGNALED(state) && WTERMSIG(state) == SIGTERM) << state;
  ExpectNothingChanged("SIGTERM");
}

}  // namespace
}  // namespace lipvane::test
