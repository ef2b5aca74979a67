#!/bin/sh
# Installs what is missing, builds Zarn, and opens it: ./run.sh [FILE]. All arguments go to zarn.
set -e
top=$(cd "$(dirname "$0")" && pwd)
. "$top/packaging/packages.sh"
install_missing $packages_run
build="$top/build/release"
cmake -S "$top" --preset release -B "$build" >/dev/null
cmake --build "$build" --target zarn zarn_desktop
exec "$build/zarn" "$@"
