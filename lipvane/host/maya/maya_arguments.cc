#include "lipvane/host/maya/maya_arguments.h"

#include <maya/MStatus.h>
#include <maya/MString.h>

#include "lipvane/host/maya/maya_status.h"

namespace lipvane::maya {

MSyntax ToMSyntax(const host::Syntax& syntax) {
  MSyntax result;
  for (const host::Flag& flag : syntax.Flags()) {
    result.addFlag(flag.shortName.c_str(), flag.longName.c_str(),
                   static_cast<MSyntax::MArgType>(flag.argument));
    if (flag.multiUse) result.makeFlagMultiUse(flag.shortName.c_str());
  }
  return result;
}

unsigned MayaArguments::Length() const {
  return list_.length();
}

host::Status MayaArguments::AsString(unsigned i, std::string& value) const {
  MStatus status;
  const MString text = list_.asString(i, &status);
  if (ToStatus(status).ok()) value = text.asChar();
  return ToStatus(status);
}

host::Status MayaArgDatabase::GetFlagArgument(const std::string& flag, unsigned index,
                                              std::string& value) const {
  MString text;
  const host::Status status = ToStatus(database_.getFlagArgument(flag.c_str(), index, text));
  if (status.ok()) value = text.asChar();
  return status;
}

host::Status MayaArgDatabase::GetFlagArgument(const std::string& flag, unsigned index,
                                              int& value) const {
  int number = 0;
  const host::Status status = ToStatus(database_.getFlagArgument(flag.c_str(), index, number));
  if (status.ok()) value = number;
  return status;
}

bool MayaArgDatabase::IsFlagSet(const std::string& flag) const {
  return database_.isFlagSet(flag.c_str());
}

unsigned MayaArgDatabase::NumberOfFlagUses(const std::string& flag) const {
  return database_.numberOfFlagUses(flag.c_str());
}

}  // namespace lipvane::maya
