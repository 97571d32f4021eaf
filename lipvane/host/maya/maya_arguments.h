#pragma once

#include <maya/MArgDatabase.h>
#include <maya/MArgList.h>
#include <maya/MSyntax.h>

#include <string>

#include "lipvane/host/arguments.h"
#include "lipvane/host/syntax.h"

namespace lipvane::maya {

/// The same flags in the same order.
MSyntax ToMSyntax(const host::Syntax& syntax);

/// The host's argument list, which must outlive this.
class MayaArguments : public host::Arguments {
 public:
  explicit MayaArguments(const MArgList& list) : list_(list) {}

  const MArgList& List() const { return list_; }

  unsigned Length() const override;
  host::Status AsString(unsigned i, std::string& value) const override;

 private:
  const MArgList& list_;
};

/// The host's reading of an argument list. It reports words that the syntax does not know itself.
class MayaArgDatabase : public host::ArgDatabase {
 public:
  MayaArgDatabase(const host::Syntax& syntax, const MayaArguments& arguments)
      : database_(ToMSyntax(syntax), arguments.List()) {}

  host::Status GetFlagArgument(const std::string& flag, unsigned index,
                               std::string& value) const override;
  host::Status GetFlagArgument(const std::string& flag, unsigned index, int& value) const override;
  bool IsFlagSet(const std::string& flag) const override;
  unsigned NumberOfFlagUses(const std::string& flag) const override;

 private:
  MArgDatabase database_;
};

}  // namespace lipvane::maya
