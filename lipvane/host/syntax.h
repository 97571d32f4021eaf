#pragma once

#include <string>
#include <vector>

namespace lipvane::host {

/// What follows a flag on a command line; the numbers are the host's own.
enum class ArgType { kNoArg = 1, kBoolean = 2, kLong = 3, kDouble = 4, kString = 5 };

/// One flag of a command. Both names carry their dash.
struct Flag {
  std::string shortName;
  std::string longName;
  ArgType argument = ArgType::kNoArg;
  bool multiUse = false;
};

/// The flags that a command accepts, the first added first.
class Syntax {
 public:
  void AddFlag(const std::string& shortName, const std::string& longName,
               ArgType argument = ArgType::kNoArg);
  void MakeFlagMultiUse(const std::string& name);

  const std::vector<Flag>& Flags() const { return flags_; }
  /// The flag of that short or long name, dash included, or null.
  const Flag* Find(const std::string& name) const;

 private:
  std::vector<Flag> flags_;
};

}  // namespace lipvane::host
