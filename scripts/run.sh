#!/usr/bin/env bash
# Installs what is missing, builds, stages the data root and starts kestra.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
"$top/scripts/install-deps.sh"
"$top/scripts/build.sh"
# Reports name the Chinese fonts designers know (宋体, 黑体); map them to the installed CJK fonts.
"$top/services/report/fonts/install-fontconfig.sh"
root="$top/build/root"
if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ]; then
  echo "No display available: running the example scripts headless instead."
  for s in "$top"/examples/*.scr; do
    [ -e "$s" ] || continue
    echo "== $s"
    "$root/bin/kestra" --script "$s" --report-dir "$top/build/reports"
  done
  exit 0
fi
exec "$root/bin/kestra" "$@"
