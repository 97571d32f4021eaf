#include "cli/terminal.h"

#include <algorithm>
#include <cstdlib>

#include "lipvane/text/numbers.h"

#ifdef _WIN32
#define NOMINMAX
#define WIN32_LEAN_AND_MEAN
#include <io.h>
#include <windows.h>
#else
#include <sys/ioctl.h>
#include <unistd.h>
#endif

namespace lipvane::cli {
namespace {

constexpr std::size_t kUsualWidth = 80;
constexpr std::size_t kNarrowest = 20;
constexpr std::size_t kWidest = 120;  // longer lines are hard to read

}  // namespace

bool IsTerminal(Stream stream) {
#ifdef _WIN32
  return _isatty(static_cast<int>(stream)) != 0;
#else
  return isatty(static_cast<int>(stream)) != 0;
#endif
}

std::size_t TerminalWidth(Stream stream) {
#ifdef _WIN32
  CONSOLE_SCREEN_BUFFER_INFO info;
  const DWORD handle = stream == Stream::kOutput ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE;
  if (!GetConsoleScreenBufferInfo(GetStdHandle(handle), &info)) return 0;
  return static_cast<std::size_t>(info.srWindow.Right - info.srWindow.Left + 1);
#else
  winsize size{};
  if (ioctl(static_cast<int>(stream), TIOCGWINSZ, &size) != 0) return 0;
  return size.ws_col;
#endif
}

std::size_t TextWidth(Stream stream) {
  const char* columns = std::getenv("COLUMNS");
  const auto wanted = columns != nullptr ? text::FiniteReal(columns) : std::nullopt;
  std::size_t width = TerminalWidth(stream);
  if (wanted && *wanted >= 1.0) width = static_cast<std::size_t>(std::min(*wanted, 1e6));
  return std::clamp(width == 0 ? kUsualWidth : width, kNarrowest, kWidest);
}

}  // namespace lipvane::cli
