#include "lipvane/formats/lbp_hierarchy.h"

#include <vector>

#include "lipvane/formats/data_lines.h"
#include "lipvane/formats/lbp.h"
#include "lipvane/text/file.h"
#include "lipvane/text/numbers.h"

namespace lipvane {
namespace {

// The number of speech targets, their names, and the phonemes' rows.
constexpr int kLinesBeforeBones = 2 + kPhonemeCount;

bool NextCount(DataLineReader& lines, int& count) {
  std::string_view line;
  if (!lines.Next(line)) return false;
  count = text::IntegerPrefix(TokenCursor(line, " ").Next());
  return true;
}

bool ReadHierarchyLines(std::string_view content, std::vector<std::string_view>& hierarchy) {
  DataLineReader lines(content);
  int version = 0;
  if (!NextCount(lines, version) || version != LBP_FORMAT_VERSION) return false;
  std::string_view line;
  for (int i = 0; i < kLinesBeforeBones; ++i) {
    if (!lines.Next(line)) return false;
  }
  int boneCount = 0;
  if (!NextCount(lines, boneCount)) return false;
  for (int i = 0; i < boneCount; ++i) {
    if (!lines.Next(line)) return false;
    hierarchy.push_back(line);
  }
  return true;
}

}  // namespace

std::map<int, std::string> BoneNameByNumber;
std::map<std::string, int> BoneNumberByName;
std::map<std::string, std::string> BoneParentByName;

bool ReadLbpHierarchyText(std::string_view text, std::map<int, std::string>& boneNameByNumber,
                          std::map<std::string, int>& boneNumberByName,
                          std::map<std::string, std::string>& boneParentByName) {
  std::vector<std::string_view> hierarchy;
  if (!ReadHierarchyLines(text, hierarchy)) return false;
  int number = 0;
  for (const std::string_view line : hierarchy) {
    ++number;
    TokenCursor tokens(line, " -> ");
    const std::string name(tokens.Next());
    boneNameByNumber.emplace(number, name);
    boneNumberByName.emplace(name, number);
    boneParentByName.emplace(name, tokens.Next());
  }
  return true;
}

bool ReadLbpHierarchy(const std::string& fileName, std::map<int, std::string>& boneNameByNumber,
                      std::map<std::string, int>& boneNumberByName,
                      std::map<std::string, std::string>& boneParentByName) {
  std::string content;
  std::string reason;
  if (!text::ReadFile(fileName, content, reason)) return true;
  return ReadLbpHierarchyText(content, boneNameByNumber, boneNumberByName, boneParentByName);
}

}  // namespace lipvane
