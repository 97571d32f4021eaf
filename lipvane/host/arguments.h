#pragma once

#include <string>

#include "lipvane/host/status.h"

namespace lipvane::host {

/// The raw arguments of one invocation, flags and values alike, in the order given.
class Arguments {
 public:
  virtual ~Arguments() = default;
  virtual unsigned Length() const = 0;
  /// Argument `i` as text; `value` is left alone on failure.
  virtual Status AsString(unsigned i, std::string& value) const = 0;
};

/// The arguments of one invocation as a syntax reads them.
class ArgDatabase {
 public:
  virtual ~ArgDatabase() = default;
  /// Value `index` of the first use of a flag; `value` is left alone on failure.
  virtual Status GetFlagArgument(const std::string& flag, unsigned index,
                                 std::string& value) const = 0;
  virtual Status GetFlagArgument(const std::string& flag, unsigned index, int& value) const = 0;
  virtual bool IsFlagSet(const std::string& flag) const = 0;
  virtual unsigned NumberOfFlagUses(const std::string& flag) const = 0;
};

}  // namespace lipvane::host
