#include "lipvane/host/standalone/interpreter.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/support/embedded_scene.h"

namespace lipvane::standalone {
namespace {

using Names = std::vector<std::string>;

constexpr char kScene[] = R"(createNode transform -n "left";
createNode joint -n "eye" -p "left";
createNode joint -n "lid" -p "|left|eye";
createNode transform -n "right";
createNode joint -n "eye" -p "right";
)";

/// Does what its one word says.
class ObeyCommand : public host::Command {
 public:
  explicit ObeyCommand(host::Host& host) : host_(host) {}

  host::Status DoIt(const host::Arguments& arguments) override {
    std::string what;
    host_.NewArgDatabase(NewSyntax(), arguments)->GetFlagArgument("-w", 0, what);
    if (what == "warn") host_.DisplayWarning("careful");
    if (what == "error") host_.DisplayError("broken");
    if (what == "throw") throw std::runtime_error("thrown");
    if (what == "throw int") throw 7;
    return what == "fail" ? host::StatusCode::kFailure : host::StatusCode::kSuccess;
  }

  static host::Syntax NewSyntax() {
    host::Syntax syntax;
    syntax.AddFlag("-w", "-what", host::ArgType::kString);
    return syntax;
  }
  static std::unique_ptr<host::Command> Create(host::Host& host) {
    return std::make_unique<ObeyCommand>(host);
  }

 private:
  host::Host& host_;
};

class InterpreterTest : public testing::Test {
 protected:
  InterpreterTest() {
    registry_ = interpreter_.OpenRegistry("vendor", "1", "Any");
    EXPECT_TRUE(
        registry_->RegisterCommand("obey", &ObeyCommand::Create, &ObeyCommand::NewSyntax).ok());
  }

  /// The error that a command line ends in, "" when it succeeds.
  std::string ErrorOf(const Names& words) {
    const CommandOutcome outcome = interpreter_.Run(words);
    if (!outcome.Failed()) return "";
    return outcome.messages.empty() ? "no message" : outcome.messages.back().text;
  }

  Names Selected() const { return test::SelectionOf(interpreter_.GetHost()); }

  Scene scene_ = Scene::Parse(kScene, "test.ma");
  Names heard_;
  Interpreter interpreter_{scene_,
                           [this](const Message& message) { heard_.push_back(message.text); }};
  std::unique_ptr<host::CommandRegistry> registry_;
};

TEST_F(InterpreterTest, KnowsItsOwnAndRegisteredCommands) {
  EXPECT_EQ(interpreter_.CommandNames(),
            (Names{"currentTime", "getAttr", "obey", "select", "setKeyframe", "undoInfo"}));
  EXPECT_FALSE(registry_->RegisterCommand("obey", &ObeyCommand::Create, nullptr).ok());
  EXPECT_FALSE(registry_->RegisterCommand("select", &ObeyCommand::Create, nullptr).ok());
  EXPECT_FALSE(registry_->DeregisterCommand("select").ok());
  EXPECT_TRUE(registry_->DeregisterCommand("obey").ok());
  EXPECT_FALSE(registry_->DeregisterCommand("obey").ok());
  EXPECT_FALSE(interpreter_.Knows("obey"));
  const std::string known = " commands are currentTime, getAttr, select, setKeyframe, undoInfo";
  EXPECT_EQ(ErrorOf({"obey"}), "unknown command \"obey\"; the" + known);
  EXPECT_EQ(ErrorOf({"selct"}), "unknown command \"selct\"; did you mean \"select\"? The" + known);
}

TEST_F(InterpreterTest, AStatusAnErrorAnExceptionOrAWrongFlagIsAFailure) {
  EXPECT_EQ(ErrorOf({"obey", "-w", "fail"}), "no message");
  EXPECT_EQ(ErrorOf({"obey", "-w", "error"}), "broken");
  EXPECT_TRUE(interpreter_.Run({"obey", "-w", "error"}).status.ok());
  EXPECT_EQ(ErrorOf({"obey", "-w", "throw"}), "obey: thrown");
  EXPECT_EQ(ErrorOf({"obey", "-w", "throw int"}), "obey: ended by an unknown exception");
  heard_.clear();
  EXPECT_EQ(ErrorOf({"obey", "stray", "-what", "warn"}), "");
  const std::string note = "obey: unexpected word \"stray\": it is passed over";
  EXPECT_EQ(heard_, (Names{note, "careful"}));
  EXPECT_EQ(ErrorOf({"obey", "stray", "-w", "warn", "-x"}),
            "obey: unknown flag \"-x\"; it accepts -w/-what STRING");
  EXPECT_EQ(heard_.size(), 3U) << "it did not run";
}

TEST_F(InterpreterTest, SelectReplacesAddsAndClears) {
  EXPECT_EQ(ErrorOf({"select", "lid"}), "");
  EXPECT_EQ(ErrorOf({"select", "-add", "|right|eye", "lid"}), "");
  EXPECT_EQ(Selected(), (Names{"|left|eye|lid", "|right|eye"}));
  EXPECT_EQ(ErrorOf({"select", "-replace", "ey*", "left"}), "");
  EXPECT_EQ(Selected(), (Names{"|left|eye", "|right|eye", "|left"}));
  EXPECT_EQ(ErrorOf({"select", "-cl"}), "");
  EXPECT_TRUE(Selected().empty());
}

TEST_F(InterpreterTest, SelectRefusesAndChangesNothing) {
  ASSERT_EQ(ErrorOf({"select", "-r", "lid"}), "");
  EXPECT_EQ(ErrorOf({"select", "left", "nose"}), "No object matches name: nose");
  EXPECT_EQ(ErrorOf({"select", "left", "eye"}), "More than one object matches name: eye");
  EXPECT_EQ(ErrorOf({"select", "no*"}), "No object matches name: no*");
  EXPECT_EQ(ErrorOf({"select"}), "select: no names are given");
  EXPECT_NE(ErrorOf({"select", "-r", "-add", "left"}), "");
  EXPECT_NE(ErrorOf({"select", "-cl", "left"}), "");
  EXPECT_NE(ErrorOf({"select", "-add", "-add", "left"}), "");
  EXPECT_EQ(ErrorOf({"select", "-d", "left"}),
            "select: unknown flag \"-d\"; it accepts -r/-replace, -add, -cl/-clear, names");
  EXPECT_EQ(Selected(), Names{"|left|eye|lid"});
}

TEST_F(InterpreterTest, CurrentTimeTakesOneFrame) {
  EXPECT_EQ(ErrorOf({"currentTime", "-12.5"}), "");
  EXPECT_EQ(interpreter_.GetHost().CurrentTime(), -12.5);
  EXPECT_EQ(ErrorOf({"currentTime", "-edit", "190"}), "");
  EXPECT_EQ(ErrorOf({"currentTime"}), "currentTime: it takes one frame");
  EXPECT_NE(ErrorOf({"currentTime", "1", "2"}), "");
  for (const char* word : {"ten", "1s", "inf", "nan", "1e999"}) {
    EXPECT_EQ(ErrorOf({"currentTime", word}),
              std::string("currentTime: \"") + word + "\" is not a frame");
  }
  EXPECT_EQ(interpreter_.GetHost().CurrentTime(), 190.0);
}

}  // namespace
}  // namespace lipvane::standalone
