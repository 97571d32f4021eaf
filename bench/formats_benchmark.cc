#include "bench/rows.h"
#include "bench/single_operations.h"

int main(int argc, char** argv) {
  return lipvane::bench::RunSingleOperations(lipvane::bench::FormatsRows(), argc, argv);
}
