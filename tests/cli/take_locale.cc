// Gives the command line what a host or an embedding program may have set before us: the locale of
// the environment, to C and C++ alike. Without it the program ends at once.

#include <clocale>
#include <cstdlib>
#include <locale>

namespace {

[[maybe_unused]] const bool isTaken = [] {
  if (std::setlocale(LC_ALL, "") == nullptr) std::exit(77);
  std::locale::global(std::locale(""));
  return true;
}();

}  // namespace
