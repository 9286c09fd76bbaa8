#!/usr/bin/env bash
# Screenshots of every calculator's dialogs for the user guide (docs/用户指南.md): each command is
# opened in windows by qt_command_shot (host/qt/qt_command_shot.cpp), the guide's example values
# are typed in, and the pages and sub-dialogs are saved as PNG files.
#   scripts/screenshots.sh [OUT_DIR]        default OUT_DIR: docs/images
# Builds first when the program or the shot tool is missing (build/, or $KESTRA_BUILD_DIR).
# Runs on a copy of the staged data root, so the staged root keeps its first-start defaults.
# Qt draws the windows offscreen (no display needed) unless QT_QPA_PLATFORM names another platform.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
bdir=${KESTRA_BUILD_DIR:-$top/build}
out=${1:-$top/docs/images}
shot_tool=$bdir/host/qt/qt_command_shot

if [ ! -x "$shot_tool" ] || [ ! -x "$bdir/root/bin/kestra" ] || [ ! -e "$bdir/root/bin/OrvelKestra.so" ]; then
  if [ -e "$bdir/CMakeCache.txt" ]; then
    cmake --build "$bdir" -j "$(nproc)"
  else
    KESTRA_BUILD_DIR=$bdir "$top/scripts/build.sh"
  fi
fi

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cp -a "$bdir/root" "$scratch/root"
mkdir -p "$out"
out=$(cd "$out" && pwd)

export QT_QPA_PLATFORM=${QT_QPA_PLATFORM:-offscreen}
# The dialogs ask for 宋体; the root's font configuration maps it to the installed Noto CJK fonts.
if [ -z "${FONTCONFIG_FILE:-}" ] && [ -e "$scratch/root/fonts/fonts.conf" ]; then
  export FONTCONFIG_FILE=$scratch/root/fonts/fonts.conf
fi

module=$scratch/root/bin/OrvelKestra.so
# Reports written on the way go to the scratch folder, never into the designer's documents.
export HOME=$scratch

# shot COMMAND STEP...: one run of qt_command_shot in the background (the calculators are taken at
# the same time, each in its own process); pictures named by the steps' shot=NAME.
runs=()
shot() {
  local command=$1
  shift
  "$shot_tool" "$module" "$out/" "$command" "$@" &
  runs+=("$!")
}

# Reactive power compensation: the natural power factor from the design loads (sub-dialog),
# 0.95 after compensation with 30 kvar capacitors; the other sub-dialog and the description page.
shot WGGL \
  click=1003 set=1101:0.75 set=1103:0.8 set=1105:800 set=1106:700 shot=wggl_design ok \
  set=1005:0.95 set=1007:0.75 set=1012:30 click=1015 shot=wggl_main \
  click=1004 set=1201:1250000 set=1202:980000 shot=wggl_inuse cancel \
  click=1017 shot=wggl_explain ok \
  cancel

# Voltage loss: a 95 mm² YJV copper cable, 160 A over 250 m; the line length for 5 % with 40 %
# third harmonics; the coefficient C table of the cosφ = 1 form.
shot DYSSCAL \
  tab=0 select=20401:0 select=20409:0 select=20328:1 select=101:0 select=102:10 \
  set=20337:160 set=20347:0.25 set=20357:0.85 click=20734 shot=dyss_loss \
  tab=1 select=20387:0 select=20379:0 select=20835:1 select=113:0 select=114:10 \
  set=20862:160 set=20869:0.85 set=20415:5 select=205:2 set=210:265 click=20734 shot=dyss_length \
  tab=0 select=20409:4 click=20671 shot=dyss_query cancel \
  cancel

# Motor start: a 1000 kW 6 kV pump motor from the catalogue on a 6.3 MVA transformer; the torque
# check with its resisting-torque table, the starting time, the transformer pick dialog; then the
# reactor and autotransformer pages for a bus kept at 0.9.
shot DJQDCAL \
  tab=0 select=20541:0 select=20602:1 select=20604:28 \
  set=20402:100 set=20404:6.3 set=20407:0.075 set=20409:4 set=20411:0.85 set=20414:6.3 \
  select=20558:0 select=20560:13 set=20562:0.3 click=20327 shot=djqd_start \
  click=20651 set=20902:1 click=20896 shot=djqd_torque click=20910 shot=djqd_resisting cancel cancel \
  click=20656 set=20924:0.8 click=20921 shot=djqd_time cancel \
  click=20405 click=20575 shot=djqd_transformer cancel \
  tab=1 set=20677:45.65 set=20696:0.9 click=20327 click=20686 shot=djqd_reactor \
  tab=2 set=20782:45.65 set=20792:0.9 click=20327 select=20894:5 shot=djqd_ratio \
  cancel

# Diesel generator set: the three methods with the example of examples/diesel.scr.
shot OrvelDieselContentCal \
  set=216:420 set=217:0.86 click=214 shot=diesel_steady \
  tab=1 set=219:180 set=220:520 click=214 shot=diesel_peak \
  tab=2 set=219:550 click=214 shot=diesel_busdrop \
  cancel

failed=0
for pid in "${runs[@]}"; do
  wait "$pid" || failed=1
done

# A 64-colour palette keeps the text sharp and the files about a third of their size; without
# the time stamps ImageMagick adds, pictures that show the same are the same files.
if command -v mogrify >/dev/null 2>&1; then
  mogrify -strip -dither None -colors 64 -define png:format=png8 "$out"/*.png
fi

if [ "$failed" != 0 ]; then
  echo "screenshots: a step failed (see above); the pictures may not show what the guide says" >&2
  exit 1
fi
echo "screenshots in $out"
