#!/usr/bin/env bash
# Builds everything with warnings as errors and runs all tests, without a display.
set -euo pipefail
cd "$(dirname "$0")"
. tools/packages.sh

need "${build_packages[@]}" "${run_packages[@]}"
configure test
cmake --build --preset test
ctest --preset test -j "$(nproc)"
