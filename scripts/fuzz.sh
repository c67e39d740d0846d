#!/usr/bin/env bash
# Builds the fuzz targets with clang's libFuzzer in build-fuzz/ and runs each
# for a bounded time.
#
#   bash scripts/fuzz.sh [seconds-per-target] [target...]
#
# Targets: LasFuzz (LAS reader: what it promises of every file it takes, and
# the write-then-read round trip), CsvFuzz (CSV
# reader), ConnectionStringFuzz (connection strings and password masking).
# Default: 30 seconds each, all three. Each target's corpus grows in
# build-fuzz/corpus/<target> (seeded from fuzz/corpus/); a failing input is
# saved as build-fuzz/artifacts/<target>/crash-* and the script exits 1.
# FUZZ_LOCK=<file> runs every build step under `flock <file>` (the fuzzing
# itself runs outside it: one core per target, one target at a time).
set -euo pipefail
cd "$(dirname "$0")/.."

seconds=${1:-30}
shift || true
targets=("$@")
[ ${#targets[@]} -gt 0 ] || targets=(LasFuzz CsvFuzz ConnectionStringFuzz)
build=build-fuzz

locked() {
  if [ -n "${FUZZ_LOCK:-}" ]; then flock "$FUZZ_LOCK" "$@"; else "$@"; fi
}

# clang and its runtime libraries (libFuzzer, the sanitizers), when missing:
# a program linked with -fsanitize=fuzzer tells.
can_link_fuzzer() {
  local probe
  probe=$(mktemp -d)
  printf 'extern "C" int LLVMFuzzerTestOneInput(const unsigned char*, unsigned long) { return 0; }\n' >"$probe/p.cpp"
  command -v clang++ >/dev/null && clang++ -fsanitize=fuzzer,address,undefined "$probe/p.cpp" -o "$probe/p" 2>/dev/null
  local ok=$?
  rm -rf "$probe"
  return $ok
}
if ! can_link_fuzzer || ! command -v cmake >/dev/null; then
  sudo=""
  [ "$(id -u)" = 0 ] || sudo="sudo"
  $sudo apt-get update
  $sudo apt-get install -y --no-install-recommends clang libclang-rt-dev cmake ninja-build
  can_link_fuzzer || { echo "clang cannot link libFuzzer programs" >&2; exit 1; }
fi

generator=()
command -v ninja >/dev/null && generator=(-G Ninja)
locked cmake -S fuzz -B "$build" "${generator[@]}" -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DPETRODB_FUZZ_ENGINE=libfuzzer >/dev/null
locked cmake --build "$build" -j2 --target "${targets[@]}"

corpus_of() {
  case "$1" in
    LasFuzz) echo las ;;
    CsvFuzz) echo csv ;;
    ConnectionStringFuzz) echo connection ;;
    *) echo "unknown target $1" >&2; exit 2 ;;
  esac
}

status=0
for target in "${targets[@]}"; do
  seeds="fuzz/corpus/$(corpus_of "$target")"
  corpus="$build/corpus/$target"
  artifacts="$build/artifacts/$target"
  mkdir -p "$corpus" "$artifacts"
  echo "== $target: ${seconds}s (corpus $corpus, seeds $seeds)"
  if ! "$build/$target" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -max_len=65536 \
      -print_final_stats=1 -artifact_prefix="$artifacts/" "$corpus" "$seeds" 2>"$build/$target.log"; then
    status=1
    echo "!! $target failed; the input is in $artifacts/, the log in $build/$target.log"
  fi
  grep -E '^(stat::number_of_executed_units|stat::peak_rss_mb|#[0-9]+ +DONE)' "$build/$target.log" || true
  grep -E "^(==[0-9]+== ?ERROR|SUMMARY|[A-Za-z]+: .*(differ|not |accepted|without|refused|failed|changed))" \
    "$build/$target.log" | head -5 || true
done
exit $status
