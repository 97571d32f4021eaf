#include "lipvane/formats/lbp_hierarchy.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <map>
#include <string>

#include "tests/formats/sample_lbp.h"
#include "tests/support/temporary_folder.h"

namespace lipvane {
namespace {

using Numbers = std::map<std::string, int>;
using Parents = std::map<std::string, std::string>;
using ByNumber = std::map<int, std::string>;
using test::SampleLbp;

struct Tables {
  bool Read(const std::string& text) {
    return ReadLbpHierarchyText(text, nameByNumber, numberByName, parentByName);
  }

  ByNumber nameByNumber;
  Numbers numberByName;
  Parents parentByName;
};

TEST(ReadLbpHierarchy, KeepsTheFirstOfEqualNames) {
  Tables tables;
  ASSERT_TRUE(tables.Read(SampleLbp({{"head -> world", "jaw -> skull -> world"}})));
  EXPECT_EQ(tables.nameByNumber, (ByNumber{{1, "jaw"}, {2, "jaw"}}));
  EXPECT_EQ(tables.numberByName, (Numbers{{"jaw", 1}}));
  EXPECT_EQ(tables.parentByName, (Parents{{"jaw", "head"}}));
}

TEST(ReadLbpHierarchy, TakesWhateverLineComes) {
  Tables tables;
  ASSERT_TRUE(tables.Read(SampleLbp({{"2 // bones", "3"}, {"head -> world", " -> x"}})));
  EXPECT_EQ(tables.nameByNumber, (ByNumber{{1, "jaw"}, {2, " -> x"}, {3, "head_bone=head"}}));
  EXPECT_EQ(tables.parentByName.at("head_bone=head"), "");
}

TEST(ReadLbpHierarchy, RefusesAnotherVersionAndTextThatEndsEarly) {
  Tables tables;
  EXPECT_FALSE(tables.Read(SampleLbp({{"// Version\n2", "1"}})));
  EXPECT_FALSE(tables.Read(SampleLbp({{"2 // bones", "2147483647"}})));
  const std::string text = SampleLbp();
  const std::size_t lastLine = text.find("head -> world");
  EXPECT_FALSE(tables.Read(""));
  EXPECT_FALSE(tables.Read(text.substr(0, lastLine)));
  EXPECT_TRUE(tables.nameByNumber.empty());
  EXPECT_TRUE(tables.Read(text.substr(0, lastLine + 1)));  // what follows the bones is not read
}

TEST(ReadLbpHierarchy, FillsThePlugInsTables) {
  const test::TemporaryFolder folder;
  const auto read = [](const std::string& path) {
    return ReadLbpHierarchy(path, BoneNameByNumber, BoneNumberByName, BoneParentByName);
  };
  EXPECT_TRUE(read(folder.Path("missing")));
  EXPECT_TRUE(BoneNameByNumber.empty());
  EXPECT_TRUE(read(folder.Make("there", SampleLbp())));
  EXPECT_EQ(BoneNumberByName, (Numbers{{"jaw", 1}, {"head", 2}}));
}

}  // namespace
}  // namespace lipvane
