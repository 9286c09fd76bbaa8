#!/usr/bin/env bash
# Configures and builds into build/ (or $KESTRA_BUILD_DIR); extra arguments go to cmake.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
bdir=${KESTRA_BUILD_DIR:-$top/build}
# ccache keeps rebuilds of several checkouts of the tree short on a small machine.
launcher=()
command -v ccache >/dev/null 2>&1 && launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache -DCMAKE_C_COMPILER_LAUNCHER=ccache)
export CCACHE_BASEDIR=${CCACHE_BASEDIR:-$top}
cmake -S "$top" -B "$bdir" -G Ninja -DCMAKE_BUILD_TYPE=${KESTRA_BUILD_TYPE:-RelWithDebInfo} "${launcher[@]}" "$@" >/dev/null
cmake --build "$bdir" -j "$(nproc)"
