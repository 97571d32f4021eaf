#include "tests/speech/timing_examples.h"

#include "tests/support/temporary_folder.h"

namespace lipvane::speech::test {
namespace {

std::string Seed(const std::string& name) {
  return lipvane::test::FileContent(LIPVANE_SOURCE_DIR "/fuzz/seeds/" + name);
}

}  // namespace

const std::string kLongTextGrid = Seed("textgrid/long.TextGrid");
const std::string kShortTextGrid = Seed("textgrid/short.TextGrid");
const std::string kRhubarbJson = Seed("rhubarb_json/rhubarb.json");
const std::string kRhubarbXml = Seed("rhubarb_xml/rhubarb.xml");
const std::string kRhubarbTsv = Seed("rhubarb_tsv/rhubarb.tsv");
const std::string kPapagayo = Seed("papagayo/papagayo.pgo");
const std::string kMoho = Seed("moho/moho.dat");
const std::string kPlainTable = Seed("timing_table/table.txt");

std::string Utf16(const std::string& ascii, bool isBigEndian) {
  std::string bytes = isBigEndian ? "\xFE\xFF" : "\xFF\xFE";
  for (const char c : ascii)
    bytes += isBigEndian ? std::string{'\0', c} : std::string{c, '\0'};
  return bytes;
}

std::vector<std::string> TimingExamples() {
  return {kLongTextGrid, kShortTextGrid, kRhubarbJson, kRhubarbXml,
          kRhubarbTsv,   kPapagayo,      kMoho,        kPlainTable};
}

}  // namespace lipvane::speech::test
