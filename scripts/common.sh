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
    # Without the lines of what was built well.
    sed '/^\[ *[0-9]*[%/]/d' "$log" | tail -n 200 >&2
    rm -f "$log"
    die "$what failed (exit status $status); its output is above."
  fi
  rm -f "$log"
}

# configure PRESET [CMAKE-OPTION...]
configure() {
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
  quietly "Configuring build/$preset" cmake --preset "$preset" "$@"
}

# build PRESET [TARGET...]
build() {
  local preset=$1
  shift
  quietly "Building build/$preset" cmake --build "build/$preset" --parallel "$(cores)" \
    ${1:+--target} "$@"
}
