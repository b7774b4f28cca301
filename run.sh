#!/usr/bin/env bash
# Builds Sonavia and opens it: ./run.sh [FILE or FOLDER]. Without arguments it opens a demonstration night.
# Where there is no display it runs under a virtual one, saves a picture of the window and ends.
set -euo pipefail

here=$(cd "$(dirname "$0")" && pwd)
arguments=()
for argument in "$@"; do
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

if [ ${#arguments[@]} -eq 0 ]; then
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
