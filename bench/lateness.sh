#!/bin/bash
# How late each message of a play goes out, over some plays of a minute. Figures, never pass or fail; for a quiet machine.
#
#   bench/lateness.sh [BUILD_FOLDER]                          default: build/release; one that holds zarn_lateness
#   PLAYS=10 bench/lateness.sh                                how many plays
#   ZARN_SOUND_DRIVER=pulseaudio bench/lateness.sh            heard, on that driver; otherwise nobody hears it
#
# A virtual machine isn't quiet when its host is busy: what the host took away during a play stands beside it.
set -euo pipefail
cd "$(dirname "$0")/.."
build=$(cd "${1:-build/release}" && pwd)
[ -x "$build/zarn_lateness" ] || { echo "$build holds no zarn_lateness: build it first" >&2; exit 1; }
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
"$build/zarn_make_reels" 130 >"$work/reels.abc"
export ZARN_SOUND_DRIVER=${ZARN_SOUND_DRIVER:-none}

# Milliseconds of processor time that the host has taken so far.
taken() { awk -v tick="$(getconf CLK_TCK)" '$1 == "cpu" { print int($9 * 1000 / tick) }' /proc/stat; }

echo "machine: $(nproc) processors, load $(cut -d ' ' -f 1-3 /proc/loadavg), driver $ZARN_SOUND_DRIVER"
for _ in $(seq "${PLAYS:-5}"); do
    before=$(taken)
    "$build/zarn_lateness" "$work/reels.abc"
    echo "    taken by the host meanwhile: $(($(taken) - before)) ms"
done
