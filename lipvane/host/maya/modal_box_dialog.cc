// The host's own dialog, for platforms whose message box is not used.

#include <maya/MGlobal.h>
#include <maya/MStatus.h>
#include <maya/MString.h>

#include "lipvane/host/maya/maya_status.h"
#include "lipvane/host/maya/modal_box.h"

namespace lipvane::maya {
namespace {

/// A string literal of the host's command language.
std::string Literal(const std::string& text) {
  std::string literal = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') literal += '\\';
    if (c == '\n') {
      literal += "\\n";
    } else {
      literal += c;
    }
  }
  return literal += '"';
}

}  // namespace

bool ShowModalBox(const std::string& text, const std::string& title, host::BoxIcon icon) {
  std::string command = "confirmDialog -button \"OK\" -icon ";
  command += icon == host::BoxIcon::kInformation ? "\"information\"" : "\"warning\"";
  command += " -title " + Literal(title) + " -message " + Literal(text);
  return ToStatus(MGlobal::executeCommand(MString(command.c_str()))).ok();
}

}  // namespace lipvane::maya
