#!/bin/bash
# How late each message of a play goes out, over a few minutes of music. Figures, never pass or fail; for a quiet machine.
#
#   bench/lateness.sh [BUILD_FOLDER]                          default: build/release; one that holds zarn_lateness
#   ZARN_SOUND_DRIVER=pulseaudio bench/lateness.sh            heard, on that driver; otherwise nobody hears it
set -euo pipefail
cd "$(dirname "$0")/.."
build=$(cd "${1:-build/release}" && pwd)
[ -x "$build/zarn_lateness" ] || { echo "$build holds no zarn_lateness: build it first" >&2; exit 1; }
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
"$build/zarn_make_reels" 500 >"$work/reels.abc"
export ZARN_SOUND_DRIVER=${ZARN_SOUND_DRIVER:-none}
echo "machine: $(nproc) processors, load $(cut -d ' ' -f 1-3 /proc/loadavg), driver $ZARN_SOUND_DRIVER"
"$build/zarn_lateness" "$work/reels.abc"
