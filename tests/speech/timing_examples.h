#pragma once

#include <string>
#include <vector>

namespace lipvane::speech::test {

/// A small file of every form that is read; the fuzzers start from the same.
extern const std::string kLongTextGrid;
extern const std::string kShortTextGrid;
extern const std::string kRhubarbJson;
extern const std::string kRhubarbXml;
extern const std::string kRhubarbTsv;
extern const std::string kPapagayo;
extern const std::string kMoho;
extern const std::string kPlainTable;

/// All of them.
std::vector<std::string> TimingExamples();

/// With a byte order mark.
std::string Utf16(const std::string& ascii, bool isBigEndian);

}  // namespace lipvane::speech::test
