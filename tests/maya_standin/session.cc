// The time line, the selection, and command lines that a plug-in has the host run.

#include <maya/MAnimControl.h>
#include <maya/MGlobal.h>
#include <maya/MSelectionList.h>
#include <maya/MTime.h>

#include <string>
#include <vector>

#include "lipvane/host/standalone/mel.h"
#include "tests/maya_standin/content.h"

namespace lipvane_standin {

namespace host = lipvane::host;
using lipvane::test::Standin;
using standin::Host;
using standin::ToMStatus;

namespace {

using Words = std::vector<std::string>;

Words WordsOf(const MString& command) {
  try {
    const auto commands = lipvane::standalone::SplitMel(
        {command.asChar(), "command"},
        [](const std::string& name) { return name == "about" || name == "confirmDialog"; });
    if (commands.size() != 1 || Standin::Current().refusedLines.count(commands[0].words[0]) != 0)
      return {};
    return commands[0].words;
  } catch (const lipvane::standalone::MelError&) {
    return {};
  }
}

/// A dialog comes back when somebody has answered it.
MStatus Confirm(const Words& words) {
  std::string title, message, icon, button;
  for (std::size_t i = 1; i + 1 < words.size(); i += 2) {
    if (words[i] == "-title") title = words[i + 1];
    if (words[i] == "-message") message = words[i + 1];
    if (words[i] == "-icon") icon = words[i + 1];
    if (words[i] == "-button") button = words[i + 1];
  }
  const bool informs = icon == "information";
  if (Standin::Current().isBatch || button.empty() || (!informs && icon != "warning")) {
    return MStatus::kFailure;
  }
  Host().ShowMessageBox(message, title,
                        informs ? host::BoxIcon::kInformation : host::BoxIcon::kExclamation);
  return MStatus::kSuccess;
}

}  // namespace

MStatus MAnimControl::setCurrentTime(const MTime& time) {
  return ToMStatus(Host().SetCurrentTime(time.Frame()));
}

MSelectionList::MSelectionList() : length_(0) {}
unsigned int MSelectionList::length(MStatus* status) const {
  standin::Answer(status, MStatus::kSuccess);
  return length_;
}

MStatus MGlobal::selectByName(const MString& name, ListAdjustment adjustment) {
  return ToMStatus(
      Host().SelectByName(name.asChar(), static_cast<host::ListAdjustment>(adjustment)));
}
MStatus MGlobal::getActiveSelectionList(MSelectionList& list, bool /*ordered*/) {
  return ToMStatus(Host().GetSelectionLength(list.length_));
}
MStatus MGlobal::clearSelectionList() {
  return ToMStatus(Host().ClearSelection());
}
void MGlobal::displayInfo(const MString& text) {
  Standin::Current().lines.emplace_back(text.asChar());
}
MStatus MGlobal::executeCommand(const MString& command, bool /*display*/, bool /*undo*/) {
  const Words words = WordsOf(command);
  if (words.empty() || words[0] != "confirmDialog") return MStatus::kFailure;
  return Confirm(words);
}
MStatus MGlobal::executeCommand(const MString& command, int& result, bool /*display*/,
                                bool /*undo*/) {
  if (WordsOf(command) != Words{"about", "-batch"}) return MStatus::kFailure;
  result = Standin::Current().isBatch ? 1 : 0;
  return MStatus::kSuccess;
}

}  // namespace lipvane_standin
