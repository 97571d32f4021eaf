#pragma once

namespace lipvane::cli {

/// Makes the signals that end the program (Ctrl-C, a closed terminal, a render farm's kill, a
/// reader that went away) remove what is half written and name what was not written; then they end
/// it as they would have. What was to be ignored when the program started (nohup) stays so. Also
/// lets a file that outgrows the system's limit be an error of writing. Does nothing where there
/// are no POSIX signals.
void CleanUpWhenInterrupted();

}  // namespace lipvane::cli
