#include "lipvane/host/maya/message_box.h"

#include <maya/MGlobal.h>
#include <maya/MStatus.h>
#include <maya/MString.h>

#include <algorithm>

#include "lipvane/host/maya/maya_status.h"
#include "lipvane/host/maya/modal_box.h"

namespace lipvane::maya {
namespace {

bool IsBatch() {
  int batch = 1;
  const host::Status status = ToStatus(MGlobal::executeCommand(MString("about -batch"), batch));
  return !status.ok() || batch != 0;
}

}  // namespace

void ShowMessageBox(const std::string& text, const std::string& title, host::BoxIcon icon) {
  if (!IsBatch() && ShowModalBox(text, title, icon)) return;
  std::string line = title + ": " + text;
  std::replace(line.begin(), line.end(), '\n', ' ');
  MGlobal::displayInfo(line.c_str());
}

}  // namespace lipvane::maya
