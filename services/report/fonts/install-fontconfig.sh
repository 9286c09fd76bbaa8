#!/usr/bin/env bash
# Makes the word processor of this desktop render the reports' Chinese fonts (宋体, 黑体, …)
# with the installed Noto CJK fonts: installs the alias file into the user's fontconfig.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
dest=${XDG_CONFIG_HOME:-$HOME/.config}/fontconfig/conf.d
mkdir -p "$dest"
if ! cmp -s "$here/kestra-cjk-fonts.conf" "$dest/60-kestra-cjk-fonts.conf"; then
  cp "$here/kestra-cjk-fonts.conf" "$dest/60-kestra-cjk-fonts.conf"
  fc-cache >/dev/null 2>&1 || true
fi
