#include "lipvane/speech/meanings.h"

#include <gtest/gtest.h>

#include <cctype>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "lipvane/speech/label_kinds.h"
#include "lipvane/speech/label_tables.h"
#include "lipvane/speech/phones.h"
#include "lipvane/speech/praat_symbols.h"
#include "lipvane/speech/shapes_file.h"

namespace lipvane::speech::test {
namespace {

using Meant = std::vector<std::pair<std::string, std::string>>;

/// The phoneme table of a new rig.
PhonemeMapping NewTable() {
  PhonemeMapping mapping;
  for (const char* const name : kSpeechTargetNames)
    mapping.AddSpeechTarget(name);
  std::istringstream rows(DefaultPhonemeTable);
  std::string name;
  while (rows >> name) {
    std::vector<float> row(kSpeechTargetNames.size());
    for (float& weight : row)
      rows >> weight;
    mapping.AddPhoneme(name, row);
  }
  return mapping;
}

/// Words cut at blanks.
std::vector<std::string> Split(const std::string& words) {
  std::istringstream stream(words);
  std::vector<std::string> list;
  for (std::string word; stream >> word;)
    list.push_back(word);
  return list;
}

std::string Small(std::string text) {
  for (char& c : text)
    c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return text;
}

TEST(Arpabet, IsKnownWholeInAnyCase) {
  for (const std::string& vowel : Split("AA AE AH AO AW AX AY EH ER EY IH IY OW OY UH UW")) {
    const std::string phoneme = vowel[0] + Small(vowel.substr(1));
    for (const char* const stress : {"", "1", "2"}) {
      EXPECT_EQ(ArpabetPhoneme(vowel + stress), phoneme);
      EXPECT_EQ(ArpabetPhoneme(Small(vowel) + stress), phoneme);
    }
    EXPECT_EQ(ArpabetPhoneme(vowel + "0"), vowel == "AH" ? "Ax" : phoneme);
    EXPECT_EQ(ArpabetPhoneme(vowel + "00"), "");
    EXPECT_EQ(ArpabetPhoneme(vowel + "3"), "");
  }
  for (const std::string& consonant :
       Split("B CH D DH F G HH JH K L M N NG P R S SH T TH V W Y Z ZH")) {
    const std::string phoneme = consonant[0] + Small(consonant.substr(1));
    EXPECT_EQ(ArpabetPhoneme(consonant), phoneme);
    EXPECT_EQ(ArpabetPhoneme(Small(consonant)), phoneme);
    EXPECT_EQ(ArpabetPhoneme(consonant + "1"), "");
  }
  for (const auto& [label, phoneme] : Meant{{"DX", "Flap"},
                                            {"", "Sil"},
                                            {"sil", "Sil"},
                                            {"SPN", "Sil"},
                                            {"sp", "ShortSil"},
                                            {"q", "ShortSil"},
                                            {"H#", "Sil"},
                                            {"axr", "Er"},
                                            {"nx", "N"},
                                            {"wh", "W"},
                                            {"bcl", "B"}}) {
    EXPECT_EQ(ArpabetPhoneme(label), phoneme) << label;
  }
}

TEST(Ipa, IsKnownAsAlignersForEnglishWriteIt) {
  for (const auto& [label, phoneme] :
       Meant{{"ˈɑː", "Aa"}, {"ˌoʊ", "Ow"}, {"aɪ̯", "Ay"},      {"aj", "Ay"},     {"ɔj", "Oy"},
             {"t͡ʃ", "Ch"},  {"dʒʷ", "Jh"}, {"n̩", "N"},        {"ɫ̩", "L"},       {"pʰ", "P"},
             {"t̪", "T"},    {"ɜː", "Er"},  {"ə˞", "Er"},      {"ɚ", "Er"},      {"ɡ", "G"},
             {"ɾ̃", "Flap"}, {"ɪə", "Ih"},  {"ʔ", "ShortSil"}, {"\u00E7", "Hh"}, {"c\u0327", "Hh"},
             {"c", "K"},    {"h", "Hh"},   {"j", "Y"},        {"əˑ", "Ax"},     {"ᵻ", "Ih"},
             {"ɜ˞", "Er"},  {"'i:", "Iy"}, {"ʊ", "Uh"},       {"ʌ", "Ah"},      {"ɔ", "Ao"},
             {"ɛ", "Eh"},   {"u", "Uw"},   {"eɪ", "Ey"},      {"aʊ", "Aw"},     {"əʊ", "Ow"},
             {"θ", "Th"},   {"ð", "Dh"},   {"ʃ", "Sh"},       {"ʒ", "Zh"},      {"ŋ", "Ng"},
             {"ɱ", "F"},    {"ɹ", "R"},    {"w", "W"},        {"tɹ", "Ch"}}) {
    EXPECT_EQ(IpaPhoneme(label), phoneme) << label;
  }
  for (const char* const label : {"", "ː", "ʘ", "tt", "ɑɑ", "\xC9", "A"})
    EXPECT_EQ(IpaPhoneme(label), "") << label;

  const Meanings meanings(NewTable(), ShapeSet::kNone);
  for (const std::string& label :
       Split("aj aw b bʲ c cʰ cʷ d dʒ dʲ d̪ ej f fʲ fʷ h i iː j k kʰ kʷ l m mʲ m̩ n n̩ ow p pʰ pʲ pʷ "
             "s t tʃ "
             "tʰ tʲ tʷ t̪ v vʲ vʷ w z æ ç ð ŋ ɐ ɑ ɑː ɒ ɒː ɔ ɔj ə əw ɚ ɛ ɛː ɜ ɜː ɝ ɟ ɟʷ ɡ ɡʷ ɪ ɫ ɫ̩ ɱ "
             "ɲ ɹ ɾ ɾʲ "
             "ɾ̃ ʃ ʉ ʉː ʊ ʎ ʒ ʔ θ aː eː oː uː ʈ ɖ ʋ kp ɡb eɪ əʊ ɔɪ aʊ eə ʊə ɪɹ aɪɚ")) {
    EXPECT_NE(meanings.Of(label).weights, nullptr) << label;
  }
}

TEST(PraatNotation, IsTurnedIntoTheSymbols) {
  for (const auto& [label, symbols] : Meant{{"\\sw", "ə"},
                                            {"\\'1\\as\\:f", "ˈɑː"},
                                            {"t\\sh", "tʃ"},
                                            {"n\\|v", "n̩"},
                                            {"\\er\\hr", "ɜ˞"},
                                            {"a\\ic\\nv", "aɪ̯"},
                                            {"d\\li\\zh", "d͡ʒ"},
                                            {"\\??\\s", "\\??\\s"},
                                            {"\\", "\\"},
                                            {"\\\\sw", "\\ə"},
                                            {"AA1", "AA1"}}) {
    EXPECT_EQ(WithoutPraatNotation(label), symbols) << label;
  }
  for (const auto& [label, phoneme] :
       Meant{{"\\ae", "Ae"},  {"\\ct", "Ao"},     {"\\ep", "Eh"},   {"\\as", "Aa"}, {"\\ic", "Ih"},
             {"\\hs", "Uh"},  {"\\vt", "Ah"},     {"\\ng", "Ng"},   {"\\sh", "Sh"}, {"\\zh", "Zh"},
             {"\\th", "Th"},  {"\\tf", "Th"},     {"\\dh", "Dh"},   {"\\l~", "L"},  {"\\rt", "R"},
             {"o\\hs", "Ow"}, {"\\sr", "Er"},     {"\\fh", "Flap"}, {"\\wt", "W"},  {"t\\h^", "T"},
             {"i\\:f", "Iy"}, {"\\er\\:f", "Er"}, {"m\\0v", "M"},   {"\\ab", "Aa"}}) {
    EXPECT_EQ(IpaPhoneme(WithoutPraatNotation(label)), phoneme) << label;
  }
}

Timing TierOf(const std::string& labels, const std::string& tier = "x") {
  Timing timing;
  timing.format = kTextGridFormat;
  timing.tier = tier;
  timing.phoneTier = "phones";
  for (const std::string& label : Split(labels)) {
    const auto second = static_cast<double>(timing.labels.size());
    timing.labels.push_back({label == "_" ? "" : label, second, second + 1, 1});
  }
  return timing;
}

TEST(WordsTiers, AreToldByTheirNamesOrTheirLabels) {
  const Meanings meanings(NewTable(), ShapeSet::kNone);
  const auto words = [&](const Timing& timing) { return FindWordsTier(timing, meanings).text; };
  // All of these are labels, too.
  for (const char* name : {"words", "Ann - word", "ORT-MAU", "Utterances"}) {
    EXPECT_EQ(words(TierOf("a uh _ ow", name)),
              "the tier \"" + std::string(name) +
                  "\" holds words, not sounds; the tier \"phones\" holds the sounds");
  }
  EXPECT_EQ(words(TierOf("I see the dog _")),
            "the tier \"x\" holds words, not sounds; the tier \"phones\" holds the sounds");
  Timing table = TierOf("uh hello you _");
  table.tier.clear();
  table.phoneTier.clear();
  EXPECT_EQ(words(table), "its labels are words, not sounds: an aligner makes sounds of them");
  // Sounds, also with noises among them, of another alphabet, or of a table that lacks them.
  for (const char* labels :
       {"HH AH0 L OW1 laugh", "h ə l ow", "h @ l @U {", "_ _", "a1 b2", "M huh"}) {
    for (const char* name : {"x", "phones", "word phones", "Phonemes of words", "Wordsworth"})
      EXPECT_EQ(words(TierOf(labels, name)), "") << labels << name;
  }
  const Meanings bare(PhonemeMapping{{"Eat"}, {"M"}, {}}, ShapeSet::kNone);
  EXPECT_EQ(FindWordsTier(TierOf("pau epi bcl"), bare).text, "");
}

TEST(Shapes, AllServeATargetOfTheirOwnSound) {
  const Meanings rhubarb(NewTable(), ShapeSet::kRhubarb);
  std::string phonemes;
  for (const std::string& shape : Split("A B C D E F G H X")) {
    EXPECT_NE(rhubarb.Of(shape).weights, nullptr) << shape;
    phonemes += std::string(rhubarb.Of(shape).phoneme) + " ";
  }
  EXPECT_EQ(phonemes, "M S Eh Aa Er W F L Sil ");
  const Meanings drawn(NewTable(), ShapeSet::kPrestonBlair);
  for (const auto& [shape, phoneme] : Meant{{"AI", "Aa"},
                                            {"E", "Eh"},
                                            {"O", "Ow"},
                                            {"U", "Uw"},
                                            {"L", "L"},
                                            {"MBP", "M"},
                                            {"FV", "F"},
                                            {"WQ", "W"},
                                            {"etc", "S"},
                                            {"rest", "Sil"}}) {
    EXPECT_EQ(drawn.Of(shape).phoneme, phoneme) << shape;
  }
  // Papagayo has other sets to offer.
  EXPECT_EQ(drawn.Of("AA1").phoneme, "Aa");
}

TEST(Meanings, ComeFromTheFirstThatKnowsTheLabel) {
  PhonemeMapping mapping = NewTable();
  mapping.phonemes[0] = "AA";  // a name of the rig's own, in place of Iy
  const Meanings meanings(mapping, ShapeSet::kNone);
  EXPECT_EQ((*meanings.Of("AA").weights)[0], 0.85F);
  EXPECT_EQ(meanings.Of("AA1").phoneme, "Aa");
  EXPECT_EQ(meanings.Of("ow").phoneme, "Ow");
  // A B is a sound unless the file is of a tool that draws one.
  EXPECT_EQ(meanings.Of("B").phoneme, "B");
  const Meaning missing = meanings.Of("IY1");
  EXPECT_EQ(missing.weights, nullptr);
  EXPECT_EQ(missing.phoneme, "Iy");
  EXPECT_EQ(meanings.Of("AI").weights, nullptr);

  // Silence needs no row.
  const Meanings bare(PhonemeMapping{{"Eat"}, {"M"}, {}}, ShapeSet::kNone);
  EXPECT_EQ(*bare.Of("").weights, Weights{0.0F});
  EXPECT_EQ(*bare.Of("M").weights, Weights{0.0F});
  EXPECT_EQ(bare.Of("sp").weights, nullptr);
}

TEST(Meanings, TakeTheUsersShapesInPlaceOfTheBuiltInOnes) {
  std::vector<ShapeRow> rows;
  ReadProblem problem;
  ASSERT_TRUE(ReadShapesText("\xEF\xBB\xBF// shapes\nAA 0 0\nA  .5\t1\r\n\n  open -1 0 // wide\n",
                             2, rows, problem));
  // Of two phonemes of one name the first counts.
  Meanings meanings(PhonemeMapping{{"Eat", "Ox"}, {"B", "AA", "Ow", "Ow"}, {{1}, {1}, {1}, {2}}},
                    ShapeSet::kRhubarb);
  meanings.ReplaceShapes(rows);
  EXPECT_EQ(*meanings.Of("A").weights, (Weights{0.5F, 1.0F}));
  EXPECT_EQ(*meanings.Of("open").weights, (Weights{-1.0F, 0.0F}));
  // One that they lack is not the phoneme of that letter.
  EXPECT_EQ(meanings.Of("B").weights, nullptr);
  EXPECT_EQ(*meanings.Of("AA").weights, (Weights{0.0F, 0.0F}));
  EXPECT_EQ((*meanings.Of("ow1").weights)[0], 1.0F);

  for (const auto& [text, reason] :
       Meant{{"A 1 1\nB 1\n", "f:2: \"B\" has 1 weights; the face has 2 speech targets"},
             {"A 1 1 1\n", "f:1: \"A\" has 3 weights; the face has 2 speech targets"},
             {"A 1 x\n", "f:1: \"x\" is no weight"},
             {"A 1 1e40\n", "f:1: \"1e40\" is no weight"},
             {"A 1 1\n\nA 0 0\n", "f:3: \"A\" stands on line 1 already"},
             {"// none\n", "f: it holds no mouth shapes"}}) {
    problem = {};
    EXPECT_FALSE(ReadShapesText(text, 2, rows, problem));
    EXPECT_EQ(problem.Text("f"), reason);
    EXPECT_EQ(rows.size(), 3U);
  }
}

TEST(Phones, ListEachUnknownLabelOnceWithItsFirstPlace) {
  Timing timing;
  timing.labels = {{"M", 0, 1, 4}, {"qq", 1, 2, 5}, {"ZH", 2, 3, 6}, {"qq", 3, 4, 7}};
  const Meanings meanings(PhonemeMapping{{"Eat"}, {"M"}, {{1}}}, ShapeSet::kNone);
  const Weights standIn = {0.5F};
  std::vector<UnknownLabel> unknown;
  const auto phones = PhonesOf(timing, meanings, &standIn, unknown);
  ASSERT_EQ(phones.size(), 4U);
  EXPECT_EQ((*phones[0].weights)[0], 1.0F);
  EXPECT_EQ(phones[3].weights, &standIn);
  EXPECT_EQ(phones[3].start, 3.0);
  ASSERT_EQ(unknown.size(), 2U);
  EXPECT_EQ(unknown[0].text, "qq");
  EXPECT_EQ(unknown[0].line, 5);
  EXPECT_EQ(unknown[0].count, 2);
  EXPECT_EQ(unknown[1].phoneme, "Zh");
}

}  // namespace
}  // namespace lipvane::speech::test
