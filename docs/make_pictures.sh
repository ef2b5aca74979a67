#!/bin/bash
# Draws the pictures of the manual anew: ./docs/make_pictures.sh [BUILD_FOLDER]. Needs Xvfb, openbox, xdotool and scrot.
set -euo pipefail
cd "$(dirname "$0")/.."
zarn=$(cd "${1:-build/release}" && pwd)/zarn
work=$(mktemp -d)
pids=()
trap 'kill "${pids[@]}" 2>/dev/null || true; rm -rf "$work"' EXIT
export HOME=$work XDG_RUNTIME_DIR=$work LC_ALL=C.UTF-8
chmod 700 "$work"

# wait_for COMMAND...: until it works, ten seconds at most.
wait_for()
{
    for _ in $(seq 100); do
        if "$@" >/dev/null 2>&1; then return 0; fi
        sleep 0.1
    done
    echo "waited in vain for: $*" >&2
    return 1
}

Xvfb -displayfd 3 -screen 0 1000x700x24 3>"$work/display" 2>/dev/null & pids+=($!)
wait_for test -s "$work/display"
export DISPLAY=:$(cat "$work/display")
openbox 2>/dev/null & pids+=($!)
wait_for sh -c 'xprop -root _NET_SUPPORTING_WM_CHECK | grep -q "window id"'

(cd samples && exec "$zarn" cooley.abc) & pids+=($!)
wait_for sh -c 'test -n "$(xdotool search --onlyvisible --name "from file")"'

# The picture is whole once two shots in a row are the same.
same_twice()
{
    rm -f "$work"/[ab].png
    scrot "$work/a.png" && sleep 0.3 && scrot "$work/b.png" && cmp -s "$work/a.png" "$work/b.png"
}
wait_for same_twice
cp "$work/a.png" docs/window.png

# tablature NAME WORDS...: a page of the air with its tablature, after what a journal of these lines asks for.
tablature()
{
    local name=$1
    shift
    printf '%s\n' "$@" 'command 303' >"$work/journal"
    "$zarn" --replay "$work/journal" --page 1 -o "docs/$name.svg" samples/skye-boat-song.abc 2>/dev/null
}
tablature tablature
tablature tablature-closed 'answer number 0' 'answer cancel' 'command 712' 'answer number 200' 'answer cancel' 'command 790'
tablature tablature-mandolin 'answer form mandolin ok' 'command 237'
