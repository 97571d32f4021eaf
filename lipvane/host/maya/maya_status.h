#pragma once

#include <maya/MStatus.h>

#include "lipvane/host/status.h"

namespace lipvane::maya {

// The numbers are the same both ways, those that have no name here included.

inline host::Status ToStatus(const MStatus& status) {
  return static_cast<host::StatusCode>(status.statusCode());
}

inline MStatus ToMStatus(const host::Status& status) {
  return static_cast<MStatus::MStatusCode>(status.code());
}

}  // namespace lipvane::maya
