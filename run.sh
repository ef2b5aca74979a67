#!/bin/sh
# Installs what is missing, builds Zarn, and opens it: ./run.sh [FILE]. All arguments go to zarn.
#   ./run.sh --deb  makes a package for Debian instead
set -e
top=$(cd "$(dirname "$0")" && pwd)
. "$top/packaging/packages.sh"
build="$top/build/release"
if [ "${1:-}" = --deb ]; then
    install_missing $packages_run $packages_deb
    cmake -S "$top" --preset release -B "$build" >/dev/null
    cmake --build "$build" --target zarn_package
    echo "Install it with: sudo apt install $build/zarn_*.deb"
    exit
fi
install_missing $packages_run
cmake -S "$top" --preset release -B "$build" >/dev/null
cmake --build "$build" --target zarn_program
exec "$build/zarn" "$@"
