#include "cli/interruption.h"

#ifndef _WIN32

#include <signal.h>  // NOLINT(modernize-deprecated-headers): <csignal> has no sigaction
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstring>

#include "lipvane/text/pending_file.h"

namespace lipvane::cli {
namespace {

struct Ending {
  int signal;
  const char* name;
};
constexpr std::array<Ending, 8> kEndings{{{SIGINT, "SIGINT"},
                                          {SIGTERM, "SIGTERM"},
                                          {SIGHUP, "SIGHUP"},
                                          {SIGQUIT, "SIGQUIT"},
                                          {SIGXCPU, "SIGXCPU"},
                                          {SIGALRM, "SIGALRM"},
                                          {SIGUSR1, "SIGUSR1"},
                                          {SIGUSR2, "SIGUSR2"}}};

// What follows runs in a signal handler: system calls alone, and no memory.

void Print(const char* text, std::size_t length) {
  if (write(STDERR_FILENO, text, length) < 0) return;  // nobody is left to be told
}

void Print(const char* text) {
  Print(text, std::strlen(text));
}

/// With "?" for control characters, which a file of a stranger may have named it with.
void PrintFileName(const char* name) {
  for (; *name != '\0'; ++name) {
    const auto byte = static_cast<unsigned char>(*name);
    Print(byte < 0x20 || byte == 0x7F ? "?" : name, 1);
  }
}

void PrintThatItWasNotWritten(const char* target) {
  Print("; ");
  PrintFileName(target);
  Print(" was not written");
}

void RemoveInSilence(const char* /*target*/) {}

void End(int signal) {
  const int error = errno;
  // A reader that went away is no news to whoever sent it away.
  if (signal == SIGPIPE) {
    text::RemovePendingFiles(RemoveInSilence);
  } else {
    termios terminal = {};
    if (tcgetattr(STDERR_FILENO, &terminal) == 0) Print("\n");  // a progress bar may stand there
    Print("Error: interrupted by ");
    for (const Ending& ending : kEndings) {
      if (ending.signal == signal) Print(ending.name);
    }
    text::RemovePendingFiles(PrintThatItWasNotWritten);
    Print("\n");
  }
  errno = error;
  // The handler was good for once: now the signal ends the program.
  raise(signal);
}

void Handle(int signal) {
  struct sigaction before = {};
  if (sigaction(signal, nullptr, &before) != 0 || before.sa_handler == SIG_IGN) return;
  struct sigaction action = {};
  action.sa_handler = End;
  action.sa_flags = static_cast<int>(SA_RESETHAND);
  sigfillset(&action.sa_mask);
  static_cast<void>(sigaction(signal, &action, nullptr));
}

}  // namespace

void CleanUpWhenInterrupted() {
  for (const Ending& ending : kEndings)
    Handle(ending.signal);
  Handle(SIGPIPE);
  static_cast<void>(signal(SIGXFSZ, SIG_IGN));
}

}  // namespace lipvane::cli

#else

void lipvane::cli::CleanUpWhenInterrupted() {}

#endif
