// What becomes of an exception that leaves a command.

#include "lipvane/plugin/maya/maya_command.h"

#include <gtest/gtest.h>

#include <memory>
#include <new>
#include <stdexcept>

#include "lipvane/plugin/facial_anim_command.h"
#include "tests/maya_standin/standin.h"
#include "tests/support/allocations.h"
#include "tests/support/lbp_text.h"
#include "tests/support/temporary_folder.h"

namespace lipvane::maya {
namespace {

using test::Shown;

/// Does what its first argument says.
class Thrower : public host::Command {
 public:
  explicit Thrower(host::Host& /*host*/) {}
  host::Status DoIt(const host::Arguments& arguments) override {
    std::string what;
    arguments.AsString(0, what);
    if (what == "engine") throw TamskException{"trail -> "};
    if (what == "memory") throw std::bad_alloc();
    if (what == "standard") throw std::runtime_error("no such thing");
    if (what == "other") throw 7;
    return host::StatusCode::kInvalidParameter;
  }
};

class WithoutMemory : public host::Command {
 public:
  explicit WithoutMemory(host::Host& /*host*/) { throw std::bad_alloc(); }
  host::Status DoIt(const host::Arguments& /*arguments*/) override { return {}; }
};

/// Needs the host to the last.
class Farewell : public host::Command {
 public:
  explicit Farewell(host::Host& host) : host_(host) { host.DisplayWarning("made"); }
  Farewell(const Farewell&) = delete;
  Farewell& operator=(const Farewell&) = delete;
  ~Farewell() override { host_.DisplayWarning("gone"); }
  host::Status DoIt(const host::Arguments& /*arguments*/) override { return {}; }

 private:
  host::Host& host_;
};

class MayaCommandTest : public testing::Test {
 protected:
  static MStatus::MStatusCode Run(const char* what) {
    MArgList arguments;
    arguments.addArg(what);
    const std::unique_ptr<MPxCommand> command(
        static_cast<MPxCommand*>(MayaCommand<Thrower>::Create()));
    return command->doIt(arguments).statusCode();
  }

  test::RecordingHost host_{{}};
  test::RecordingStandinScene scene_{host_};
  test::Standin standin_{scene_};
};

TEST_F(MayaCommandTest, ExceptionsBecomeMessagesAndFailures) {
  EXPECT_EQ(Run("nothing"), MStatus::kInvalidParameter);
  EXPECT_EQ(Run("memory"), MStatus::kInsufficientMemory);
  EXPECT_EQ(Run("standard"), MStatus::kFailure);
  EXPECT_EQ(Run("other"), MStatus::kFailure);
  EXPECT_EQ(host_.shown,
            (std::vector<Shown>{{"error", "out of memory", ""},
                                {"error", "ended by an unexpected error: no such thing", ""},
                                {"error", "ended by an unknown exception", ""}}));
}

TEST_F(MayaCommandTest, TheEnginesOwnExceptionPasses) {
  try {
    Run("engine");
    FAIL() << "nothing was thrown";
  } catch (const TamskException& error) {
    EXPECT_EQ(error.message, "trail -> ");
  }
  EXPECT_TRUE(host_.shown.empty());
}

TEST_F(MayaCommandTest, TheHostIsThereBeforeTheCommandAndAfterIt) {
  delete static_cast<MPxCommand*>(MayaCommand<Farewell>::Create());
  EXPECT_EQ(host_.shown, (std::vector<Shown>{{"warning", "made", ""}, {"warning", "gone", ""}}));
}

TEST_F(MayaCommandTest, ACommandThereIsNoMemoryForIsNull) {
  EXPECT_EQ(MayaCommand<WithoutMemory>::Create(), nullptr);
}

// Whatever there is no memory for: nothing is thrown into the host, and the user hears of it.
TEST(MayaCommandWithoutMemory, EndsInAStatus) {
  const test::TemporaryFolder folder;
  MArgList arguments;
  arguments.addArg("-import");
  arguments.addArg("-lbp");
  arguments.addArg(
      folder.Make("given.lbp", test::LbpText({"a_joint_of_long_name"}, {{{}}})).c_str());
  test::ForEachAllocation([&](test::Shortage& shortage) {
    test::NodeDescription joint;
    joint.path = "|a_joint_of_long_name";
    test::RecordingHost host({joint});
    test::RecordingStandinScene scene(host);
    const test::Standin standin(scene);
    MStatus::MStatusCode status = MStatus::kInsufficientMemory;
    MPxCommand* command = nullptr;
    EXPECT_TRUE(shortage.Do([&] {
      MayaCommand<plugin::FacialAnimCommand>::NewSyntax();
      command = static_cast<MPxCommand*>(MayaCommand<plugin::FacialAnimCommand>::Create());
      if (command != nullptr) status = command->doIt(arguments).statusCode();
    }));
    delete command;
    // Where even the message is too much the status has to tell.
    EXPECT_TRUE(status == MStatus::kInsufficientMemory || host.curves.size() == 9 ||
                (!host.shown.empty() && host.shown[0].kind == "error"));
    const std::unique_ptr<MPxCommand> next(
        static_cast<MPxCommand*>(MayaCommand<plugin::FacialAnimCommand>::Create()));
    EXPECT_EQ(next->doIt(arguments).statusCode(), MStatus::kSuccess);
    EXPECT_EQ(host.curves.size(), 9u);
  });
}

}  // namespace
}  // namespace lipvane::maya
