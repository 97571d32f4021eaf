// What the plug-in file shows to the world, and what it needs of it.

#include <gtest/gtest.h>

#include <cctype>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/process.h"
#include "tests/support/temporary_folder.h"

namespace lipvane::test {
namespace {

using Names = std::set<std::string>;

std::vector<std::string> SymbolLines(const std::vector<std::string>& options) {
  std::vector<std::string> arguments = options;
  arguments.emplace_back(LIPVANE_PLUGIN_FILE);
  const ProcessResult result = RunProcess(LIPVANE_NM, arguments);
  EXPECT_EQ(result.status, 0) << result.err;
  std::vector<std::string> lines;
  std::istringstream in(result.out);
  for (std::string line; std::getline(in, line);)
    lines.push_back(line);
  return lines;
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

/// The host's calls by class and name, as they stand in a text. Destructors are no calls of ours.
Names CallsIn(const std::string& text, const std::string& before, char after) {
  Names calls;
  for (auto at = text.find(before); at != std::string::npos; at = text.find(before, at + 1)) {
    const auto begin = at + before.size();
    const std::string call = text.substr(begin, text.find(after, begin) - begin);
    const bool isCall = call.size() > 2 && call[0] == 'M' && std::isupper(call[1]) != 0 &&
                        call.find("::") != std::string::npos;
    if (isCall && call.find('~') == std::string::npos) calls.insert(call);
  }
  return calls;
}

TEST(PluginFileSymbols, TheTableOfCallsIsComplete) {
  Names needed;
  for (const std::string& line : SymbolLines({"-D", "-C", "--undefined-only"})) {
    if (line.find(" U lipvane_standin::") == std::string::npos) continue;
    for (const std::string& call : CallsIn(line, " U lipvane_standin::", '('))
      needed.insert(call);
  }
  EXPECT_GT(needed.size(), 50u);
  const std::string page = FileContent(LIPVANE_SOURCE_DIR "/docs/maya-api.md");
  const auto begin = page.find("\n## Calls");
  ASSERT_NE(begin, std::string::npos);
  const std::string table = page.substr(begin, page.find("\n## ", begin + 1) - begin);
  EXPECT_EQ(CallsIn(table, "`", '`'), needed);
}

}  // namespace
}  // namespace lipvane::test
