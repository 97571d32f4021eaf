// Readers, writers and what goes through files, of whose allocations each fails in turn.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "lipvane/check/lbp_check.h"
#include "lipvane/check/ltf_check.h"
#include "lipvane/check/scene_check.h"
#include "lipvane/check/vocabulary.h"
#include "lipvane/formats/lbp.h"
#include "lipvane/formats/lbp_face.h"
#include "lipvane/formats/ltf.h"
#include "lipvane/speech/meanings.h"
#include "lipvane/speech/phones.h"
#include "lipvane/speech/speech_tracks.h"
#include "lipvane/speech/timing.h"
#include "lipvane/text/file.h"
#include "tests/hostile/readers.h"
#include "tests/support/allocations.h"
#include "tests/support/temporary_folder.h"

namespace lipvane::test {
namespace {

std::string Seed(const std::string& name) {
  return FileContent(LIPVANE_SOURCE_DIR "/fuzz/seeds/" + name);
}

class ReadingFailure : public testing::TestWithParam<Reader> {};

TEST_P(ReadingFailure, IsNeverTakenForTheFiles) {
  for (const std::string& bytes : SeedsOf(GetParam())) {
    const std::string whole = GetParam().answer(bytes);
    ForEachAllocation([&](Shortage& shortage) {
      std::string answer;
      const bool isDone = shortage.Do([&] { answer = GetParam().answer(bytes); });
      EXPECT_TRUE(!isDone || answer == whole) << answer;
    });
  }
}

INSTANTIATE_TEST_SUITE_P(, ReadingFailure, testing::ValuesIn(Readers()),
                         [](const auto& reader) { return reader.param.name; });

/// The text that the work makes is the same as with memory enough, or none.
template <typename Work>
void ExpectSameOrNothing(const Work& work) {
  const std::string whole = work();
  ForEachAllocation([&](Shortage& shortage) {
    std::string made;
    const bool isDone = shortage.Do([&] { made = work(); });
    EXPECT_TRUE(!isDone || made == whole) << made;
  });
}

TEST(AllocationFailure, OfSpeechAndItsTexts) {
  PhonemeMapping mapping;
  TBonePoseInfo poses;
  ReadProblem problem;
  speech::Timing timing;
  ASSERT_TRUE(ReadLbpText(Seed("lbp/face.lbp"), poses, mapping, problem));
  ASSERT_TRUE(speech::ReadTimingText(Seed("timing_table/ipa.txt"), {}, timing, problem));
  ExpectSameOrNothing([&] {
    const speech::Meanings meanings(mapping, timing.shapes);
    std::vector<speech::UnknownLabel> unknown;
    speech::LeftOut leftOut;
    const auto phones = speech::PhonesOf(timing, meanings, &meanings.Silence(), unknown);
    const TAnimation animation = speech::SpeechTracks(phones, timing.end, meanings.Silence(),
                                                      mapping.speechTargets, {}, leftOut);
    std::string text;
    std::string reason;
    EXPECT_TRUE(LtfText(animation, {"A line about where it is from."}, text, reason)) << reason;
    return text + mapping.LipsincMapText("a character of a long name");
  });
}

TEST(AllocationFailure, OfChecks) {
  const std::string lbp = Seed("lbp/face.lbp");
  const std::string ltf = Seed("ltf/line.ltf");
  const auto scene = standalone::Scene::Parse(Seed("scene/face.ma"), "face.ma");
  ExpectSameOrNothing([&] {
    std::vector<check::Finding> findings;
    check::CheckLbp("face.lbp", lbp, findings);
    check::CheckLtf("line.ltf", ltf, *check::VocabularyOf(lbp), findings);
    check::CheckAgainstScene("face.lbp", lbp, {scene, "face.ma", {}}, findings);
    EXPECT_FALSE(findings.empty());
    std::string text;
    for (const check::Finding& finding : findings)
      text += std::to_string(finding.line) + ": " + finding.text + "\n";
    return text;
  });
}

TEST(AllocationFailure, OfLoadingAFaceLeavesOneThatCanBeLoadedAgain) {
  const std::string lbp = Seed("lbp/face.lbp");
  ForEachAllocation([&](Shortage& shortage) {
    TController face;
    PhonemeMapping mapping;
    ReadProblem problem;
    shortage.Do([&] { EXPECT_TRUE(LoadFaceText(lbp, face, mapping, problem)); });
    ASSERT_TRUE(LoadFaceText(lbp, face, mapping, problem));
    TController fresh;
    PhonemeMapping freshMapping;
    ASSERT_TRUE(LoadFaceText(lbp, fresh, freshMapping, problem));
    EXPECT_EQ(mapping.weights, freshMapping.weights);
    EXPECT_EQ(face.ExpressionCount(), fresh.ExpressionCount());
    EXPECT_EQ(face.BonePoseInfo()->boneIds, fresh.BonePoseInfo()->boneIds);
  });
}

TEST(AllocationFailure, OfSavingLeavesTheOldFileAndNoOther) {
  const TemporaryFolder folder;
  const std::string name = folder.Path("a file of a long name.txt");
  const std::string text(100'000, 'x');
  ForEachAllocation([&](Shortage& shortage) {
    folder.Make("a file of a long name.txt", "old");
    std::string reason;
    bool isSaved = false;
    const bool isDone = shortage.Do([&] {
      text::OutputFile file;
      if (!file.Open(name, text::OutputFile::Mode::kBinary, reason)) return;
      file.Stream() << text;
      isSaved = file.Commit(reason);
    });
    EXPECT_TRUE(!isDone || isSaved || !reason.empty());
    EXPECT_EQ(FileContent(name), isSaved ? text : "old");
    EXPECT_EQ(folder.Names().size(), 1u);
  });
}

TEST(AllocationFailure, OfReadingAFileLeavesTheContentAlone) {
  const std::string name = LIPVANE_SOURCE_DIR "/fuzz/seeds/lbp/face.lbp";
  ForEachAllocation([&](Shortage& shortage) {
    std::string content = "before";
    std::string reason;
    bool isRead = false;
    shortage.Do([&] { isRead = text::ReadFile(name, content, reason); });
    EXPECT_EQ(content, isRead ? Seed("lbp/face.lbp") : "before");
  });
}

}  // namespace
}  // namespace lipvane::test
