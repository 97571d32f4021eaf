#include "cli/progress.h"

#include <algorithm>
#include <iostream>
#include <utility>

#include "cli/terminal.h"

namespace lipvane::cli {
namespace {

constexpr std::chrono::milliseconds kDelay{500};
constexpr std::chrono::milliseconds kInterval{100};

constexpr std::size_t kMostCells = 30;
constexpr std::size_t kFewestCells = 5;
constexpr std::size_t kUsualWidth = 80;

/// Never as wide as the terminal, where it would begin a line that is not erased.
std::string Bar(const std::string& what, double part, std::size_t terminalWidth) {
  const std::size_t room = (terminalWidth > 0 ? terminalWidth : kUsualWidth) - 1;
  const std::string percent = " " + std::to_string(static_cast<int>(part * 100.0)) + " %";
  const std::size_t around = what.size() + std::string(" []").size() + percent.size();
  if (around + kFewestCells > room) return (what + percent).substr(0, room);
  const std::size_t cells = std::min(room - around, kMostCells);
  const auto filled = static_cast<std::size_t>(part * static_cast<double>(cells));
  return what + " [" + std::string(filled, '#') + std::string(cells - filled, ' ') + "]" + percent;
}

}  // namespace

Progress::Progress()
    : Progress(std::cerr, IsTerminal(Stream::kError), kDelay,
               [] { return TerminalWidth(Stream::kError); }) {}

Progress::Progress(std::ostream& out, bool isShown, Clock::duration delay,
                   std::function<std::size_t()> terminalWidth)
    : out_(out),
      isShown_(isShown),
      next_(Clock::now() + delay),
      terminalWidth_(std::move(terminalWidth)) {}

Progress::~Progress() {
  Erase();
}

void Progress::Show(const std::string& what, std::size_t done, std::size_t total) {
  if (!isShown_ || total == 0) return;
  const auto now = Clock::now();
  if (now < next_) return;
  next_ = now + kInterval;

  const double part = std::min(1.0, static_cast<double>(done) / static_cast<double>(total));
  const std::string bar = Bar(what, part, terminalWidth_());
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
