// Apart from the rest, since the system's headers and the host's do not go together.

#define NOMINMAX
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include "lipvane/host/maya/modal_box.h"

namespace lipvane::maya {

bool ShowModalBox(const std::string& text, const std::string& title, host::BoxIcon icon) {
  const UINT image = icon == host::BoxIcon::kInformation ? MB_ICONINFORMATION : MB_ICONEXCLAMATION;
  return MessageBoxA(nullptr, text.c_str(), title.c_str(), MB_OK | image) != 0;
}

}  // namespace lipvane::maya
