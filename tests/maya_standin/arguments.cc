#include <maya/MArgDatabase.h>
#include <maya/MArgList.h>
#include <maya/MArgParser.h>
#include <maya/MSyntax.h>

#include <cstring>
#include <string>

#include "lipvane/host/standalone/words.h"
#include "tests/maya_standin/content.h"

namespace lipvane_standin {

MArgList::MArgList() = default;
unsigned int MArgList::length(MStatus* status) const {
  standin::Answer(status, MStatus::kSuccess);
  return static_cast<unsigned int>(args_.size());
}
MString MArgList::asString(unsigned int index, MStatus* status) const {
  standin::Answer(status, index < args_.size() ? MStatus::kSuccess : MStatus::kFailure);
  return index < args_.size() ? args_[index] : MString();
}
MStatus MArgList::addArg(const MString& arg) {
  args_.push_back(arg);
  return MStatus::kSuccess;
}

MSyntax::MSyntax() = default;
MStatus MSyntax::addFlag(const char* shortName, const char* longName, MArgType argType1,
                         MArgType /*argType2*/, MArgType /*argType3*/, MArgType /*argType4*/,
                         MArgType /*argType5*/, MArgType /*argType6*/) {
  // A short name has at most three characters after its dash, a long one at least four.
  if (std::strlen(shortName) > 4 || std::strlen(longName) < 5) return MStatus::kFailure;
  flags_.AddFlag(shortName, longName, static_cast<lipvane::host::ArgType>(argType1));
  return MStatus::kSuccess;
}
MStatus MSyntax::makeFlagMultiUse(const char* flag) {
  if (flags_.Find(flag) == nullptr) return MStatus::kInvalidParameter;
  flags_.MakeFlagMultiUse(flag);
  return MStatus::kSuccess;
}

MArgParser::MArgParser(const MSyntax& syntax, const MArgList& args, MStatus* status) {
  std::vector<std::string> words;
  for (unsigned int i = 0; i < args.length(); ++i)
    words.emplace_back(args.asString(i).asChar());
  // Through the host behind, so that one that records its calls hears of it.
  database_ = standin::Host().NewArgDatabase(syntax.Flags(),
                                             lipvane::standalone::WordArguments(std::move(words)));
  standin::Answer(status, MStatus::kSuccess);
}
MArgParser::~MArgParser() = default;
bool MArgParser::isFlagSet(const char* flag, MStatus* status) const {
  standin::Answer(status, MStatus::kSuccess);
  return database_->IsFlagSet(flag);
}
unsigned int MArgParser::numberOfFlagUses(const char* flag) const {
  return database_->NumberOfFlagUses(flag);
}
MArgDatabase::MArgDatabase(const MSyntax& syntax, const MArgList& args, MStatus* status)
    : MArgParser(syntax, args, status) {}
MArgDatabase::~MArgDatabase() = default;
MStatus MArgDatabase::getFlagArgument(const char* flag, unsigned int index, int& result) const {
  return standin::ToMStatus(database_->GetFlagArgument(flag, index, result));
}
MStatus MArgDatabase::getFlagArgument(const char* flag, unsigned int index, MString& result) const {
  std::string text;
  const lipvane::host::Status status = database_->GetFlagArgument(flag, index, text);
  if (status.ok()) result = text.c_str();
  return standin::ToMStatus(status);
}

}  // namespace lipvane_standin
