#include "cli/progress.h"

#include <algorithm>
#include <iostream>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace lipvane::cli {
namespace {

constexpr std::chrono::milliseconds kDelay{500};
constexpr std::chrono::milliseconds kInterval{100};

constexpr int kStandardOutputNumber = 1;
constexpr int kStandardErrorNumber = 2;

bool IsTerminal(int descriptor) {
#ifdef _WIN32
  return _isatty(descriptor) != 0;
#else
  return isatty(descriptor) != 0;
#endif
}

}  // namespace

bool StandardOutputIsTerminal() {
  return IsTerminal(kStandardOutputNumber);
}

Progress::Progress() : Progress(std::cerr, IsTerminal(kStandardErrorNumber), kDelay) {}

Progress::Progress(std::ostream& out, bool isShown, Clock::duration delay)
    : out_(out), isShown_(isShown), next_(Clock::now() + delay) {}

Progress::~Progress() {
  Erase();
}

void Progress::Show(const std::string& what, std::size_t done, std::size_t total) {
  if (!isShown_ || total == 0) return;
  const auto now = Clock::now();
  if (now < next_) return;
  next_ = now + kInterval;

  constexpr std::size_t kCells = 30;
  const double part = std::min(1.0, static_cast<double>(done) / static_cast<double>(total));
  const auto filled = static_cast<std::size_t>(part * static_cast<double>(kCells));
  const std::string bar = what + " [" + std::string(filled, '#') +
                          std::string(kCells - filled, ' ') + "] " +
                          std::to_string(static_cast<int>(part * 100.0)) + " %";
  Erase();
  out_ << bar << std::flush;
  width_ = bar.size();
}

void Progress::Erase() {
  if (width_ == 0) return;
  out_ << '\r' << std::string(width_, ' ') << '\r' << std::flush;
  width_ = 0;
}

}  // namespace lipvane::cli
