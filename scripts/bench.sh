#!/usr/bin/env bash
# Builds the benchmarks (Release with debug info, in build-bench), runs them on
# SQLite and, on a throwaway PostgreSQL cluster, on the server, and prints one
# table: case, petrodb, raw, ratio (medians of the repetitions, ratio within one
# run). Extra arguments go to the benchmark program, e.g. --benchmark_filter=Save.
#
#   bash scripts/bench.sh [--repetitions N] [benchmark arguments...]
set -euo pipefail

root="$(cd "$(dirname "$0")/.." && pwd)"
build="${PETRODB_BENCH_BUILD:-$root/build-bench}"
repetitions=7
if [ "${1:-}" = "--repetitions" ]; then
  repetitions="$2"
  shift 2
fi

if [ ! -f "$build/build.ninja" ]; then
  cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
fi
cmake --build "$build" -j2 --target petrodb_bench >/dev/null

bench="$build/bin/petrodb_bench"
# Repetitions of the petrodb and raw cases run in a random order, so that a
# slow stretch of a noisy machine does not fall on one side of a pair.
args=(--benchmark_repetitions="$repetitions" --benchmark_enable_random_interleaving=true
      --benchmark_report_aggregates_only=true "$@")
log=$(mktemp /tmp/petrodb-bench.XXXXXX)
trap 'rm -f "$log"' EXIT

# SQLite alone, then the server cases on their own cluster. The ratio table is
# what the program prints after its results.
"$bench" --benchmark_filter='^[^P]' "${args[@]}" >"$log" 2>&1 || { cat "$log" >&2; exit 1; }
sqlite_table=$(sed -n '/^case /,$p' "$log" | tail -n +2)
pg_table=""
if bash "$root/scripts/pg-cluster.sh" run -- "$bench" --benchmark_filter='^Pg' "${args[@]}" >"$log" 2>&1; then
  pg_table=$(sed -n '/^case /,$p' "$log" | tail -n +2)
else
  echo "bench: the PostgreSQL run failed; only SQLite is shown" >&2
  tail -n 20 "$log" >&2
fi

printf '%-44s %14s %14s %8s\n' "case" "petrodb" "raw" "ratio"
printf '%s\n' "$sqlite_table"
[ -n "$pg_table" ] && printf '%s\n' "$pg_table"
echo "(medians of $repetitions repetitions; ratio = petrodb ÷ raw)"
