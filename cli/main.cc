#include <exception>
#include <new>

#include "cli/command_line.h"
#include "cli/interruption.h"
#include "cli/messages.h"

int main(int argc, char** argv) {
  constexpr int kFailed = 1;
  lipvane::cli::CleanUpWhenInterrupted();
  try {
    return lipvane::cli::RunCommandLine(argc, argv);
  } catch (const std::bad_alloc&) {
    lipvane::cli::PrintError("out of memory");
  } catch (const std::exception& error) {
    lipvane::cli::PrintError(error.what());
  } catch (...) {
    lipvane::cli::PrintError("an unknown exception");
  }
  return kFailed;
}
