#!/usr/bin/env bash
# Builds the benchmarks, runs them and prints how the program stands against its peers in this very run.
set -euo pipefail
cd "$(dirname "$0")"
. tools/packages.sh

need "${build_packages[@]}" "${run_packages[@]}" "${benchmark_packages[@]}"
configure bench
cmake --build --preset bench --target benchmarks
for benchmark in build/bench/benchmarks/bench_*; do
    if [ -f "$benchmark" ] && [ -x "$benchmark" ]; then
        echo
        echo "== $(basename "$benchmark")"
        "$benchmark" "$@"
    fi
done
