// What the plug-in file shows to the world, and what it needs of it: no more than Maya has.

#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/process.h"
#include "tests/support/temporary_folder.h"

namespace lipvane::test {
namespace {

using Names = std::set<std::string>;

std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);)
    lines.push_back(line);
  return lines;
}

std::vector<std::string> SymbolLines(const std::vector<std::string>& options) {
  std::vector<std::string> arguments = options;
  arguments.emplace_back(LIPVANE_PLUGIN_FILE);
  const ProcessResult result = RunProcess(LIPVANE_NM, arguments);
  EXPECT_EQ(result.status, 0) << result.err;
  return LinesOf(result.out);
}

/// What a file in the stand-in's folder lists of the real Maya.
Names RealMaya(const std::string& file) {
  Names listed;
  for (const std::string& line : LinesOf(FileContent(LIPVANE_STANDIN_DIR "/" + file))) {
    if (line[0] != '#') listed.insert(line);
  }
  return listed;
}

TEST(PluginFileSymbols, ThreeAreExported) {
  Names names;
  for (const std::string& line : SymbolLines({"-D", "-C", "--defined-only"})) {
    const std::string name = line.substr(line.rfind(' ', line.find('(')) + 1);
    names.insert(name.substr(0, name.find('(')));
  }
  EXPECT_EQ(names, (Names{"MApiVersion", "initializePlugin", "uninitializePlugin"}));
}

TEST(PluginFileSymbols, OnlyTheHierarchyTablesAreMadeWhenItIsLoaded) {
  Names files;
  const std::string prefix = "_GLOBAL__sub_I_";
  for (const std::string& line : SymbolLines({})) {
    const auto at = line.find(prefix);
    // Sanitizers have such functions in every file, with a number for their order.
    if (at == std::string::npos || line.compare(at + prefix.size(), 3, "000") == 0) continue;
    files.insert(line.substr(at + prefix.size()));
  }
  ASSERT_EQ(files.size(), 1u);
  EXPECT_NE(files.begin()->find("lbp_hierarchy"), std::string::npos) << *files.begin();
}

TEST(PluginFileSymbols, AreInTheRealMayaAndInTheTableOfCalls) {
  const Names real = RealMaya("real_symbols.txt");
  // Destructors and copies are not held to it, nor what a constructor in a header needs where
  // nothing is optimised.
  const std::regex passed(
      R"(.*::~.*|.*::operator=\(.*|(\w+)::\1\(\1 const&\)|vtable for .*)" LIPVANE_SANITIZERS_SYMBOLS);
  Names calls;
  for (const std::string& line : SymbolLines({"-D", "-C", "--undefined-only"})) {
    if (line.find("lipvane_standin::") == std::string::npos) continue;
    const std::string whole = line.substr(line.find_first_not_of(' ') + 2);
    const std::string symbol = std::regex_replace(whole, std::regex("lipvane_standin::"), "");
    if (std::regex_match(symbol, passed)) continue;
    EXPECT_EQ(real.count(symbol), 1u) << symbol;
    if (symbol.find("typeinfo") != 0) calls.insert(symbol.substr(0, symbol.find('(')));
  }
  EXPECT_GT(calls.size(), 50u);
  const std::string page = FileContent(LIPVANE_SOURCE_DIR "/docs/maya-api.md");
  const auto begin = page.find("\n## Calls");
  ASSERT_NE(begin, std::string::npos);
  const std::string table = page.substr(begin, page.find("\n## ", begin + 1) - begin);
  const std::regex call("`(M[A-Z]\\w+::[^`]+)`");
  const std::sregex_iterator first(table.begin(), table.end(), call), end;
  Names listed;
  for (auto at = first; at != end; ++at)
    listed.insert((*at)[1]);
  EXPECT_EQ(listed, calls);
}

TEST(StandinHeaders, AreThereInTheRealMayaWithTheirClasses) {
  const Names real = RealMaya("real_headers.txt");
  Names headers;
  for (const std::string& line : real)
    headers.insert(line.substr(0, line.find(' ')));
  const std::regex definition(R"(\b(?:class|struct)\s+(\w+)[^;{]*\{)");
  std::size_t classes = 0;
  for (const auto& file :
       std::filesystem::directory_iterator(LIPVANE_STANDIN_DIR "/include/maya")) {
    const std::string header = file.path().filename().string();
    EXPECT_EQ(headers.count(header), 1u) << header;
    const std::string text = FileContent(file.path().string());
    const std::sregex_iterator end;
    for (std::sregex_iterator at(text.begin(), text.end(), definition); at != end; ++at) {
      ++classes;
      EXPECT_EQ(real.count(header + " " + (*at)[1].str()), 1u) << header << ' ' << (*at)[1];
    }
  }
  EXPECT_GT(classes, 25u);
}

}  // namespace
}  // namespace lipvane::test
