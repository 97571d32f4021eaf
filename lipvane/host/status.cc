#include "lipvane/host/status.h"

namespace lipvane::host {

std::string Status::Description() const {
  switch (code_) {
    case StatusCode::kSuccess:
      return "(kSuccess): No Error";
    case StatusCode::kFailure:
      return "(kFailure): Unexpected Internal Failure";
    case StatusCode::kInsufficientMemory:
      return "(kInsufficientMemory): Unable to Allocate Memory";
    case StatusCode::kInvalidParameter:
      return "(kInvalidParameter): Object is incompatible with this method";
  }
  return "(unknown status)";
}

}  // namespace lipvane::host
