#!/usr/bin/env bash
# Installs what is missing, builds with AddressSanitizer and UBSan, and runs every test.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
"$top/scripts/install-deps.sh"
export KESTRA_BUILD_DIR=${KESTRA_BUILD_DIR:-$top/build-test}
export KESTRA_BUILD_TYPE=Debug
"$top/scripts/build.sh" -DKESTRA_SANITIZE=ON -DKESTRA_WERROR=ON
export ASAN_OPTIONS=detect_leaks=1:abort_on_error=1
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
export QT_QPA_PLATFORM=offscreen
cd "$KESTRA_BUILD_DIR"
ctest --output-on-failure -j "$(nproc)"
