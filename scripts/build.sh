#!/usr/bin/env bash
# Configures and builds into build/ (or $KESTRA_BUILD_DIR); extra arguments go to cmake.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
bdir=${KESTRA_BUILD_DIR:-$top/build}
cmake -S "$top" -B "$bdir" -G Ninja -DCMAKE_BUILD_TYPE=${KESTRA_BUILD_TYPE:-RelWithDebInfo} "$@" >/dev/null
cmake --build "$bdir" -j "$(nproc)"
