#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <ostream>
#include <string>

namespace lipvane::cli {

/// A bar on a terminal that says how far long work has come. Work that is done soon never shows it.
class Progress {
 public:
  using Clock = std::chrono::steady_clock;

  /// On standard error, when that is a terminal.
  Progress();
  /// The width is asked for at each drawing, as terminals change theirs; 0 is an unknown one.
  Progress(std::ostream& out, bool isShown, Clock::duration delay,
           std::function<std::size_t()> terminalWidth);
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
  std::function<std::size_t()> terminalWidth_;
  std::size_t width_ = 0;  // of the bar that stands there
};

}  // namespace lipvane::cli
