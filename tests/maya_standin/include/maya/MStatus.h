// The stand-in's own declaration; see ../../README.md.
#pragma once

#include <maya/MTypes.h>

namespace lipvane_standin {

class MStatus {
 public:
  enum MStatusCode {
    kSuccess = 0,
    kFailure = 1,
    kInsufficientMemory = 2,
    kInvalidParameter = 3,
    kLicenseFailure = 4,
    kUnknownParameter = 5,
  };
  MStatus() : code_(kSuccess) {}
  MStatus(MStatusCode code);
  MStatusCode statusCode() const { return code_; }
  void perror(const char* label) const;

 private:
  MStatusCode code_;
};

}  // namespace lipvane_standin
