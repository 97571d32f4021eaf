# What the scripts share; sourced, not run. Leaves the caller in the root of the tree.
# shellcheck shell=bash
set -eu

unset CDPATH
cd "$(dirname "${BASH_SOURCE[0]}")/.."

say() { printf '%s\n' "$@"; }
die() {
  printf '%s\n' "$*" >&2
  exit 1
}

cores() { getconf _NPROCESSORS_ONLN 2>/dev/null || echo 2; }

# quietly WHAT COMMAND...: the command's output goes to a log that is shown only when it fails.
quietly() {
  local what=$1 log status=0
  shift
  log=$(mktemp "${TMPDIR:-/tmp}/lipvane.XXXXXX")
  "$@" >"$log" 2>&1 </dev/null || status=$?
  if [ "$status" -ne 0 ]; then
    tail -n 200 "$log" >&2
    rm -f "$log"
    die "$what failed (exit status $status); its output is above."
  fi
  rm -f "$log"
}

# build PRESET [CMAKE-OPTION...]: configures and builds, in silence when all goes well.
build() {
  local preset=$1
  shift
  # A folder that is configured already keeps its generator.
  if [ ! -e "build/$preset/CMakeCache.txt" ] && command -v ninja >/dev/null; then
    set -- -G Ninja "$@"
  fi
  if [ -z "${CMAKE_CXX_COMPILER_LAUNCHER-}" ] && command -v ccache >/dev/null; then
    export CMAKE_CXX_COMPILER_LAUNCHER=ccache
  fi
  if [ -n "${CI-}" ]; then
    set -- -DLIPVANE_WERROR=ON "$@"
  fi
  quietly "Configuring ($preset)" cmake --preset "$preset" "$@"
  quietly "Building ($preset)" cmake --build "build/$preset" --parallel "$(cores)"
}
