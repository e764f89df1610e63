#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Builds the release preset and measures. Arguments go to each program, for instance
# --benchmark_filter=layOut. Prints medians of five runs.
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/setup.sh
./scripts/build.sh release
export LC_ALL=C.UTF-8 QT_QPA_PLATFORM=offscreen
for program in build/release/bin/bench_*; do
    "$program" --benchmark_repetitions=5 --benchmark_report_aggregates_only=true \
        --benchmark_min_time=0.1 "$@" | grep -E '_median|^Benchmark|^---'
done
