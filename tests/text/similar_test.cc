#include "lipvane/text/similar.h"

#include <gtest/gtest.h>

namespace lipvane::text {
namespace {

TEST(SimilarTest, FindsWhatFewSlipsLeadTo) {
  const std::vector<std::string> names = {"jaw",  "lip_upper", "lip_lower",
                                          "play", "plot",      "report"};
  const std::pair<const char*, const char*> cases[] = {{"jaww", "jaw"},
                                                       {"jw", ""},
                                                       {"awj", ""},
                                                       {"JAW", "jaw"},
                                                       {"jwa", "jaw"},
                                                       {"lip_uper", "lip_upper"},
                                                       {"lip_ower", "lip_lower"},
                                                       {"plog", "plot"},
                                                       {"plo", "plot"},
                                                       {"reprot", "report"},
                                                       {"rerpot", "report"},
                                                       {"rprto", ""},
                                                       {"", ""},
                                                       {"eye", ""}};
  for (const auto& [word, nearest] : cases)
    EXPECT_EQ(Nearest(word, names).value_or(""), nearest) << word;
  EXPECT_EQ(DidYouMean("jaww", names), "; did you mean \"jaw\"?");
  EXPECT_EQ(DidYouMean("nose", names), "");
}

TEST(SimilarTest, ComparesNoNameOfAnyLength) {
  const std::string longest(kLongestCompared, 'a');
  const std::vector<std::string> names(1000, longest + "a");
  EXPECT_EQ(Nearest(longest, names), std::nullopt);
  EXPECT_EQ(Nearest(longest + "a", names), std::nullopt);
  EXPECT_EQ(Nearest(longest.substr(1), {longest}), longest);
}

}  // namespace
}  // namespace lipvane::text
