#include "tests/speech/timing_examples.h"

namespace lipvane::speech::test {

const std::string kLongTextGrid = R"(File type = "ooTextFile"
Object class = "TextGrid"

xmin = 0 
xmax = 0.9 
tiers? <exists> 
size = 3 
item []: 
    item [1]:
        class = "IntervalTier" 
        name = "words" 
        xmin = 0 
        xmax = 0.9 
        intervals: size = 2 
        intervals [1]:
            xmin = 0 
            xmax = 0.2 
            text = "" 
        intervals [2]:
            xmin = 0.2 
            xmax = 0.9 
            text = "a ""so"" 
called" 
    item [2]:
        class = "TextTier" 
        name = "hand phones" 
        xmin = 0 
        xmax = 0.9 
        points: size = 1 
        points [1]:
            number = 0.45 
            mark = "1 %" 
    item [3]:
        class = "IntervalTier" 
        name = "Ann - Phones " 
        xmin = 0 
        xmax = 1 
        intervals: size = 3 
        intervals [1]:
            xmin = 0 
            xmax = 0.2 
            text = "" 
        intervals [2]:
            xmin = 0.2 
            xmax = 0.5500000000000004 
            text = "S" 
        intervals [3]:
            xmin = 0.55 
            xmax = 0.9 
            text = " OW1 " 
)";

const std::string kShortTextGrid =
    "File type = \"ooTextFile\"\nObject class = \"TextGrid\"\n\n0\n0.9\n<exists>\n3\n"
    "\"IntervalTier\"\n\"words\"\n0\n0.9\n2\n"
    "0\n0.2\n\"\"\n0.2\n0.9\n\"a \"\"so\"\" \ncalled\"\n"
    "\"TextTier\"\n\"hand phones\"\n0\n0.9\n1\n"
    "0.45\n\"1 %\"\n"
    "\"IntervalTier\"\n\"Ann - Phones\"\n0\n1\n3\n"
    "0\n0.2\n\"\"\n0.2\n0.5500000000000004\n\"S\"\n0.55\n0.9\n\" OW1 \"\n";

const std::string kRhubarbJson = R"({
  "metadata": { "soundFile": "C:\\so.wav", "duration": 0.95 },
  "mouthCues": [
    { "start": 0.00, "end": 0.20, "value": "X" },
    { "start": "0.20", "end": "0.55", "value": "B" },
    { "start": 0.55, "end": 0.90, "value": "F" }
  ]
}
)";

const std::string kRhubarbXml = R"(<?xml version="1.0" encoding="utf-8"?>
<rhubarbResult>
  <metadata>
    <soundFile>so.wav</soundFile>
    <duration>0.95</duration>
  </metadata>
  <mouthCues>
    <mouthCue start="0.00" end="0.20">X</mouthCue>
    <mouthCue start="0.20" end="0.55">B</mouthCue>
    <mouthCue start="0.55" end="0.90">F</mouthCue>
  </mouthCues>
</rhubarbResult>
)";

const std::string kRhubarbTsv = "0.00\tX\n0.20\tB\n0.55\tF\n0.90\tX\n";

const std::string kPapagayo =
    "lipsync version 1\nso it.wav\n10\n30\n1\n"
    "\tVoice 1\n\t\n\t1\n\t\tso it\n\t\t2\n\t\t20\n\t\t2\n"
    "\t\t\tso 2 6 2\n\t\t\t\t2 etc\n\t\t\t\t4 O\n"
    "\t\t\tit 9 12 1\n\t\t\t\t9 AI\n";

const std::string kMoho = "MohoSwitch1\n1 rest\n7 etc\n13 WQ\n25 rest\n";

const std::string kPlainTable = "0\t0.2\t\n0.2  0.55 S\n\n+.55 9e-1 the \"oh\"\n";

std::string Utf16(const std::string& ascii, bool isBigEndian) {
  std::string bytes = isBigEndian ? "\xFE\xFF" : "\xFF\xFE";
  for (const char c : ascii)
    bytes += isBigEndian ? std::string{'\0', c} : std::string{c, '\0'};
  return bytes;
}

std::vector<std::string> TimingExamples() {
  return {kLongTextGrid,
          kShortTextGrid,
          Utf16(kShortTextGrid, true),
          Utf16(kShortTextGrid, false),
          kRhubarbJson,
          kRhubarbXml,
          kRhubarbTsv,
          kPapagayo,
          kMoho,
          kPlainTable};
}

}  // namespace lipvane::speech::test
