#!/usr/bin/env bash
# Fuzzes the demo's DXF reader for SECONDS (60 by default): builds the harness
# tests/fuzz/fuzz_DxfReader.cpp with clang, libFuzzer, ASan and UBSan into
# build-fuzz/, seeds it with the parts library's drawings and the demo's own,
# and prints what the run did. Every input that crashed, hung or ran out of
# memory is kept in build-fuzz/dxf-crashes/; the script then fails. Replay one
# with build-fuzz/bin/fuzz_DxfReader FILE, and keep it in tests/fuzz/dxf-regressions/.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-60}

packages=(clang cmake ninja-build qtbase5-dev pkg-config libdxflib-dev libmuparser-dev librecad-data fonts-dejavu-core)
./scripts/install-packages.sh "${packages[@]}"

build=build-fuzz
# The library's tree is instrumented for coverage and checked; only the harness links libFuzzer's main.
cmake -S . -B "$build" -G Ninja -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DBUILD_TESTING=OFF -DPROP_FUZZ_DXF=ON \
  "-DCMAKE_CXX_FLAGS=-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer" \
  > /dev/null
cmake --build "$build" --target fuzz_DxfReader -j 2

corpus=$build/dxf-corpus
crashes=$build/dxf-crashes
mkdir -p "$corpus" "$crashes"
seeds=(demo/drawing/samples tests/fuzz/dxf-regressions)
[ -d /usr/share/librecad/library ] && seeds+=(/usr/share/librecad/library)
known=$(ls "$crashes")
log=$build/fuzz-dxf.log

export QT_QPA_PLATFORM=offscreen
export ASAN_OPTIONS=detect_leaks=1:halt_on_error=1:detect_stack_use_after_return=1
export UBSAN_OPTIONS=halt_on_error=1:print_stacktrace=1
export LSAN_OPTIONS="suppressions=$PWD/tests/lsan.supp:print_suppressions=0"
echo "fuzzing for $seconds s; progress in $log"
# Forked, a crash ends one job and the run goes on; -max_len holds the largest parts-library drawing,
# which takes seconds under the sanitizers: a minute is a hang.
status=0
"$build/bin/fuzz_DxfReader" "$corpus" "${seeds[@]}" -fork=1 -ignore_crashes=1 -ignore_timeouts=1 -ignore_ooms=1 \
  -max_total_time="$seconds" -max_len=1048576 -timeout=60 -dict=tests/fuzz/dxf.dict \
  -artifact_prefix="$crashes/" -print_funcs=0 > "$log" 2>&1 || status=$?

new=$(comm -13 <(echo "$known") <(ls "$crashes"))
# libFuzzer's forked runs report after each job: "#runs: cov: edges ft: features corp: inputs exec/s n oom/timeout/crash: a/b/c time: Ns"
last=$(grep -E '^#[0-9]+' "$log" | tail -n 1 || true)
echo "last report: $last"
if [[ $last =~ ^#([0-9]+):\ cov:\ ([0-9]+)\ ft:\ ([0-9]+)\ corp:\ ([0-9]+).*oom/timeout/crash:\ ([0-9/]+)\ time:\ ([0-9]+)s ]]; then
  runs=${BASH_REMATCH[1]} elapsed=${BASH_REMATCH[6]}
  echo "executions: $runs in $elapsed s ($(( runs / (elapsed > 0 ? elapsed : 1) )) per second); coverage: ${BASH_REMATCH[2]} edges," \
    "${BASH_REMATCH[3]} features; corpus: ${BASH_REMATCH[4]} inputs; out of memory/timeouts/crashes: ${BASH_REMATCH[5]}"
fi
echo "corpus kept: $(find "$corpus" -type f | wc -l) inputs in $corpus"
if [ -n "$new" ] || [ "$status" -ne 0 ]; then
  echo "faults (exit status $status), kept in $crashes/:"
  echo "$new"
  exit 1
fi
echo "no faults"
