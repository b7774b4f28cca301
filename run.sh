#!/usr/bin/env bash
# Builds Sonavia and opens it: ./run.sh [FILE or FOLDER | --demo-season]. Without arguments it opens a demonstration
# night, with --demo-season the classified recordings of a season to try the activity plots on.
# Where there is no display it runs under a virtual one, saves a picture of the window and ends.
set -euo pipefail

here=$(cd "$(dirname "$0")" && pwd)
arguments=()
season=no
for argument in "$@"; do
    if [ "$argument" = --demo-season ]; then
        season=yes
        continue
    fi
    # A path means what it meant in the folder from which this script was called.
    if [ -e "$argument" ]; then
        argument=$(realpath -s -- "$argument")
    fi
    arguments+=("$argument")
done
cd "$here"
. tools/packages.sh

headless=no
if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ]; then
    headless=yes
fi
packages=("${build_packages[@]}" "${run_packages[@]}")
if [ "$headless" = yes ]; then
    packages+=("${headless_packages[@]}")
fi
need "${packages[@]}"

configure release -DSONAVIA_TESTS=OFF
cmake --build --preset release --target sonavia

if [ "$season" = yes ]; then
    cmake --build --preset release --target sonavia_make_demo_season
    build/release/tools/sonavia_make_demo_season --if-missing --weather build/demo-season build/demo-season/recordings
    arguments+=("$here/build/demo-season/recordings")
    echo 'The plots: "Evaluation", "Activity Plots". Their weather: "Define Temperature and Precipitation Data File" and'
    echo '"Define Wind Speed Data File" (there choose "Time/Date represents the End of 10min Intervals") with the files'
    echo 'temperature-and-precipitation.csv and wind-speed.csv of build/demo-season. All times are Central European ones.'
elif [ ${#arguments[@]} -eq 0 ]; then
    cmake --build --preset release --target sonavia_make_demo_night
    build/release/tools/sonavia_make_demo_night --if-missing build/demo-night
    arguments=("$here/build/demo-night")
fi

if [ "$headless" = no ]; then
    exec build/release/app/sonavia "${arguments[@]}"
fi

picture="$here/build/screenshot.png"
rm -f "$picture"
echo "There is no display: running under a virtual one."
if [ -z "${XDG_RUNTIME_DIR:-}" ]; then
    XDG_RUNTIME_DIR=$(mktemp -d)
    export XDG_RUNTIME_DIR
    trap 'rm -rf "$XDG_RUNTIME_DIR"' EXIT
fi
xvfb-run -a -s "-screen 0 1280x1024x24" timeout 120 \
    build/release/app/sonavia --screenshot "$picture" "${arguments[@]}"
if [ -s "$picture" ]; then
    echo "Screenshot: $picture"
fi
