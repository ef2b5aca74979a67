#!/bin/sh
# Installs what is missing, builds Zarn and runs its tests.
#   ./test.sh             the release build and all tests but the long ones
#   ./test.sh --sanitize  the same tests under the address and undefined sanitizers, then under the thread sanitizer
#   ./test.sh --fuzz S    each fuzz target for S seconds (needs clang)
#   ./test.sh --package   the Debian package, installed and removed in a system that has nothing else
# Warnings are errors in all of them.
set -e
top=$(cd "$(dirname "$0")" && pwd)
. "$top/packaging/packages.sh"
export LC_ALL=C.UTF-8
export LSAN_OPTIONS="suppressions=$top/tests/lsan.supp:print_suppressions=0"
jobs=$(nproc 2>/dev/null || echo 2)

# Configures and builds a preset, then runs its tests.
check()
{
    cmake -S "$top" --preset "$1" -DZARN_WERROR=ON
    cmake --build "$top/build/$1" -j "$jobs"
    (cd "$top/build/$1" && ctest --output-on-failure -j "$jobs" --no-tests=error)
}

case "${1:-}" in
"")
    install_missing $packages_run $packages_deb $packages_test
    check release
    ;;
--sanitize)
    install_missing $packages_run $packages_test
    check asan-ubsan
    check tsan
    ;;
--fuzz)
    install_missing $packages_run clang libclang-rt-14-dev
    cmake -S "$top" --preset fuzz
    cmake --build "$top/build/fuzz" -j "$jobs"
    for target in "$top"/build/fuzz/zarn_fuzz_*; do
        name=${target##*zarn_fuzz_}
        work="$top/build/fuzz/work-$name"
        mkdir -p "$work"
        (cd "$work" && "$target" -max_total_time="${2:-60}" -rss_limit_mb=2048 -timeout=20 . "$top/fuzz/corpus/$name")
    done
    ;;
--package)
    install_missing $packages_run $packages_deb $packages_clean
    cmake -S "$top" --preset release -DZARN_WERROR=ON
    cmake --build "$top/build/release" -j "$jobs" --target zarn_package
    "$top/tests/packaging/clean_root.sh" "$top"/build/release/zarn_*.deb
    ;;
*)
    echo "usage: $0 [--sanitize | --fuzz SECONDS | --package]" >&2
    exit 2
    ;;
esac
