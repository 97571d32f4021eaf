#include "lipvane/plugin/facial_anim_command.h"

#include <cstdio>
#include <new>

namespace lipvane::plugin {

std::unique_ptr<host::Command> FacialAnimCommand::Create(host::Host& host) {
  return std::unique_ptr<host::Command>(new (std::nothrow) FacialAnimCommand(host));
}

host::Syntax FacialAnimCommand::NewSyntax() {
  host::Syntax syntax;
  syntax.AddFlag("-m", "-morph");
  syntax.AddFlag("-lbp", "-lbpfile", host::ArgType::kString);
  syntax.AddFlag("-ltf", "-ltffile", host::ArgType::kString);
  syntax.AddFlag("-exp", "-expression", host::ArgType::kString);
  syntax.MakeFlagMultiUse("-exp");
  syntax.AddFlag("-imp", "-import");
  syntax.AddFlag("-sel", "-select");
  return syntax;
}

host::Status FacialAnimCommand::ParseArgs(const host::Arguments& arguments) {
  const auto database = host_.NewArgDatabase(NewSyntax(), arguments);
  morphFlag_ = 0;
  importFlag_ = 0;
  selectFlag_ = 0;
  // An absent flag leaves its field empty; no status is looked at.
  database->GetFlagArgument("-lbp", 0, lbpFileName_);
  database->GetFlagArgument("-ltf", 0, ltfFileName_);
  if (database->IsFlagSet("-m")) morphFlag_ = 1;
  if (database->IsFlagSet("-imp")) importFlag_ = 1;
  if (database->IsFlagSet("-sel")) selectFlag_ = 1;
  CollectExpressionNames(arguments);
  database->NumberOfFlagUses("-exp");
  expressionCount_ = static_cast<int>(expressionNames_.size());
  return {};
}

// The database answers only a flag's first use, so all uses are collected from the raw arguments.
void FacialAnimCommand::CollectExpressionNames(const host::Arguments& arguments) {
  for (unsigned i = 0; i < arguments.Length(); ++i) {
    std::string flag;
    if (!arguments.AsString(i, flag).ok()) continue;
    if (flag != "-exp" && flag != "-expression") continue;
    ++i;  // to the value, which is never taken for a flag itself
    std::string value;
    if (arguments.AsString(i, value).ok()) expressionNames_.push_back(value);
  }
}

host::Status FacialAnimCommand::DoIt(const host::Arguments& arguments) {
  const host::Status parsed = ParseArgs(arguments);
  if (!parsed.ok()) {
    std::fputs("parseArgs", stderr);  // std::cerr would have a constructor run at loading
    return parsed;
  }
  if (importFlag_ != 0) {
    // Deliberate: an import that fails has said so, and the command still succeeds.
    ImportPoses();
    return parsed;
  }
  if (selectFlag_ != 0) return SelectBones();
  // -morph is accepted and does nothing, as no flag at all does.
  return {};
}

}  // namespace lipvane::plugin
