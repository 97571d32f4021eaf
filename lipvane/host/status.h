#pragma once

#include <string>

namespace lipvane::host {

/// What a host's operation may answer; the numbers are the host's own.
enum class StatusCode {
  kSuccess = 0,
  kFailure = 1,
  kInsufficientMemory = 2,
  kInvalidParameter = 3,
};

/// The outcome of a host's operation. A default-made status is success.
class Status {
 public:
  Status() = default;
  Status(StatusCode code) : code_(code) {}  // not explicit: reads as the host's

  bool ok() const { return code_ == StatusCode::kSuccess; }
  StatusCode code() const { return code_; }

  /// The host's words for the code, such as "(kFailure): Unexpected Internal Failure".
  std::string Description() const;

  friend bool operator==(const Status& a, const Status& b) { return a.code_ == b.code_; }
  friend bool operator!=(const Status& a, const Status& b) { return !(a == b); }

 private:
  StatusCode code_ = StatusCode::kSuccess;
};

}  // namespace lipvane::host
