#include "lipvane/host/maya/message_box.h"

#include <gtest/gtest.h>

#include "lipvane/host/maya/maya_host.h"
#include "tests/maya_standin/standin.h"

namespace lipvane::maya {
namespace {

using test::Shown;

class MessageBox : public testing::Test {
 protected:
  test::RecordingHost host_{{}};
  test::RecordingStandinScene scene_{host_};
  test::Standin standin_{scene_};
};

TEST_F(MessageBox, ADialogSaysEveryCharacter) {
  const std::string text = "C:\\faces\\\"new\"\n\t$x `pwd`; \xC3\xA4 // end";
  ShowMessageBox(text, "A \"title\"", host::BoxIcon::kExclamation);
  MayaHost().ShowMessageBox("", "", host::BoxIcon::kInformation);
  EXPECT_EQ(host_.shown, (std::vector<Shown>{{"box", text, "A \"title\""}, {"box", "", ""}}));
  EXPECT_EQ(host_.Calls(),
            (std::vector<std::string>{"ShowMessageBox exclamation", "ShowMessageBox information"}));
}

TEST_F(MessageBox, NobodyIsAskedInBatchMode) {
  standin_.isBatch = true;
  MayaHost().ShowMessageBox("one\ntwo", "Title", host::BoxIcon::kInformation);
  EXPECT_EQ(standin_.lines, std::vector<std::string>{"Title: one two"});
  // Nor where the host does not tell, or shows no dialog.
  standin_.isBatch = false;
  standin_.refusedLines = {"about"};
  ShowMessageBox("three", "Title", host::BoxIcon::kInformation);
  standin_.refusedLines = {"confirmDialog"};
  ShowMessageBox("four", "Title", host::BoxIcon::kInformation);
  EXPECT_EQ(standin_.lines,
            (std::vector<std::string>{"Title: one two", "Title: three", "Title: four"}));
  EXPECT_TRUE(host_.shown.empty());
}

}  // namespace
}  // namespace lipvane::maya
