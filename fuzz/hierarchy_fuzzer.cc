#include <cstddef>
#include <cstdint>
#include <map>
#include <string>

#include "fuzz/expect.h"
#include "lipvane/formats/lbp_hierarchy.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(data, data + size);
  std::map<int, std::string> nameByNumber;
  std::map<std::string, int> numberByName;
  std::map<std::string, std::string> parentByName;
  if (!lipvane::ReadLbpHierarchyText(text, nameByNumber, numberByName, parentByName)) {
    Expect(nameByNumber.empty() && numberByName.empty() && parentByName.empty());
    return 0;
  }
  for (const auto& [name, number] : numberByName)
    Expect(nameByNumber.count(number) == 1 && number >= 1);
  return 0;
}
