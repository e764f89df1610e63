#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Builds the release preset and measures. Arguments go to each program, for instance
# --benchmark_filter=layOut. Prints medians of five runs, keeps all figures in build/release/bench,
# and makes the tables of box text from them: build/release/bench/boxtext.md.
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/setup.sh
./scripts/build.sh release
export LC_ALL=C.UTF-8 QT_QPA_PLATFORM=offscreen
results=build/release/bench
mkdir -p "$results"
# Interleaved: what else the machine does falls on all cases alike.
for program in build/release/bin/bench_*; do
    "$program" --benchmark_repetitions=5 --benchmark_enable_random_interleaving=true \
        --benchmark_min_time=0.1 --benchmark_report_aggregates_only=true \
        --benchmark_out="$results/$(basename "$program").json" --benchmark_out_format=json "$@" |
        awk '/_median|^Benchmark|^---/'
done
if ./scripts/bench_table.py "$results/bench_boxtext.json" >"$results/boxtext.md"; then
    cat "$results/boxtext.md"
else
    echo "bench.sh: the tables of box text are not complete" >&2
fi
