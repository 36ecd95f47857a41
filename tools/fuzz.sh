#!/usr/bin/env bash
# Builds the libFuzzer targets with clang (build-fuzz/) and runs them.
#
#   tools/fuzz.sh [target|all] [seconds] [extra libFuzzer flags...]
#
# Each target starts from its committed seeds (fuzz/corpus/<target>) and grows its own
# corpus in build-fuzz/corpus/<target>. A run fails on a crash, a sanitizer report, a leak
# in the project's code, or an input that takes more than a second; the input that did it
# is kept in build-fuzz/artifacts/ (replay it: build-fuzz/fuzz/fuzz_<target> <file>).
# `all` runs every target in turn for the given seconds (default 30 each).
set -euo pipefail
cd "$(dirname "$0")/.."
root=$(pwd)
targets=(pkr scene_stream clipboard directives mel_parse mel_eval ma_read)
which=${1:-all}
seconds=${2:-30}
shift $(($# > 2 ? 2 : $#))

bash tools/deps.sh
launcher=()
command -v ccache >/dev/null && launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
cmake -S . -B build-fuzz -DZELVANI_FUZZ=ON -DCMAKE_CXX_COMPILER=clang++ \
    -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS_DEBUG=-O1 "${launcher[@]}" >/dev/null
build=(--target "fuzz_$which")
if [ "$which" = all ]; then
    build=()
else
    targets=("$which")
fi
if ! cmake --build build-fuzz -j"$(nproc)" "${build[@]}" >build-fuzz/build.log 2>&1; then
    cat build-fuzz/build.log
    exit 1
fi

# Qt and fontconfig keep a few allocations for the life of the process; a leak anywhere
# else fails the run. Leaks are looked for at the end of a run, over all its inputs: a
# check after each input would cost more than the input, since Qt's caches grow at first.
export LSAN_OPTIONS="suppressions=$root/fuzz/lsan.supp:print_suppressions=0"
# AddressSanitizer keeps every distinct allocation stack for the life of the process, and
# stacks walked by frame pointers through Qt's libraries, built without them, come out
# nearly all distinct: with 30 frames, and still with 10, a run of the Maya ASCII reader
# grew past a gigabyte of them and slowed to a fifth of its speed. Three frames name the
# allocating code; a finding's own stack is whole, and a replay may ask for more.
export ASAN_OPTIONS="detect_leaks=1:allocator_may_return_null=0:malloc_context_size=3"
export UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1"
out=$root/build-fuzz
mkdir -p "$out/artifacts"
status=0
for target in "${targets[@]}"; do
    dict=fuzz/dict/$target.dict
    [ -f "$dict" ] || dict=fuzz/dict/mel.dict
    # Each tab of a scene stream is a view: a few kilobytes of valid tabs would take
    # seconds under the sanitizers, so that target's inputs stay short.
    limit=()
    [ "$target" = scene_stream ] && limit=(-max_len=512)
    corpus=$out/corpus/$target
    mkdir -p "$corpus"
    echo "== fuzz_$target: $seconds s"
    log=$out/artifacts/$target.log
    # Absolute paths: a target may change its working folder.
    rc=0
    "$out/fuzz/fuzz_$target" "$corpus" "$root/fuzz/corpus/$target" -dict="$root/$dict" \
        -max_total_time="$seconds" -timeout=1 -rss_limit_mb=2560 -malloc_limit_mb=512 \
        -detect_leaks=0 -print_final_stats=1 -artifact_prefix="$out/artifacts/$target-" \
        "${limit[@]}" "$@" >"$log" 2>&1 || rc=$?
    if [ $rc -ne 0 ]; then
        status=1
        echo "fuzz_$target FAILED (exit code $rc; the whole output is in $log):"
        grep -E -A30 "ERROR|runtime error|fuzz check failed|timeout|Test unit written" "$log" | head -60
    fi
    grep -E "^stat::(number_of_executed_units|average_exec_per_sec|peak_rss_mb)" "$log" || true
done
exit $status
