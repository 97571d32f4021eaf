#pragma once

#include <chrono>
#include <cstddef>
#include <ostream>
#include <string>

namespace lipvane::cli {

/// Whether results go to a terminal, where a bar would stand between them.
bool StandardOutputIsTerminal();

/// A bar on a terminal that says how far long work has come. Work that is done soon never shows it.
class Progress {
 public:
  using Clock = std::chrono::steady_clock;

  /// On standard error, when that is a terminal.
  Progress();
  Progress(std::ostream& out, bool isShown, Clock::duration delay);
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;
  /// Erases the bar.
  ~Progress();

  void Show(const std::string& what, std::size_t done, std::size_t total);
  /// Erases the bar, so that a line can be written in its place.
  void Erase();

 private:
  std::ostream& out_;
  bool isShown_;
  Clock::time_point next_;  // no bar before
  std::size_t width_ = 0;   // of the bar that stands there
};

}  // namespace lipvane::cli
