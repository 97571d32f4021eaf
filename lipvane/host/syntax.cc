#include "lipvane/host/syntax.h"

#include <algorithm>

namespace lipvane::host {

void Syntax::AddFlag(const std::string& shortName, const std::string& longName, ArgType argument) {
  flags_.push_back({shortName, longName, argument, false});
}

void Syntax::MakeFlagMultiUse(const std::string& name) {
  for (Flag& flag : flags_) {
    if (flag.shortName == name || flag.longName == name) flag.multiUse = true;
  }
}

const Flag* Syntax::Find(const std::string& name) const {
  const auto flag = std::find_if(flags_.begin(), flags_.end(), [&](const Flag& f) {
    return f.shortName == name || f.longName == name;
  });
  return flag == flags_.end() ? nullptr : &*flag;
}

}  // namespace lipvane::host
