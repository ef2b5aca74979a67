#!/bin/bash
# Whole runs side by side, on tunes made by rule: converting, opening, starting. Figures, never pass or fail.
#
#   bench/compare.sh [BUILD_FOLDER]      default: build/release; a folder that holds zarn and zarn_make_reels
#   RUNS=20 bench/compare.sh             how many runs of each; the median is shown
#
# What isn't there is left out with a line that says so. On Debian: abcm2ps, abcmidi, fluidsynth, ghostscript (ps2pdf),
# xvfb, pkg-config, qt6-base-dev and libxcb1-dev.
set -euo pipefail
cd "$(dirname "$0")/.."
build=$(cd "${1:-build/release}" && pwd)
samples=$PWD/samples
runs=${RUNS:-10}
zarn=$build/zarn
work=$(mktemp -d)
server=
finish() {
    [ -z "$server" ] || kill "$server" 2>/dev/null || true
    rm -rf "$work"
}
trap finish EXIT
cd "$work"

has() { command -v "$1" >/dev/null; }
skip() { printf '%-52s left out: %s\n' "$1" "$2"; }
show() { printf '%-52s %10s ms\n' "$1" "$2"; }

# The middle one of the numbers on standard input.
median() { sort -n | awk '{ a[NR] = $1 } END { if (NR % 2) print a[(NR + 1) / 2]; else printf "%.1f\n", (a[NR / 2] + a[NR / 2 + 1]) / 2 }'; }

# add NAME PROGRAM COMMAND: a row for the next run; without the program it is left out.
rows=()
add() {
    if has "$2"; then rows+=("$1" "$3"); else skip "$1" "$(basename "$2") isn't there"; fi
}

# The median time of each row's shell command in milliseconds. They run in turn, so that a machine that slows down for a
# while does so for all of them; a command that fails is told, not timed.
run() {
    local -a names=() commands=()
    local i from to
    for ((i = 0; i < ${#rows[@]}; i += 2)); do
        if (eval "${rows[i + 1]}") >/dev/null 2>failure; then
            names+=("${rows[i]}")
            commands+=("${rows[i + 1]}")
        else
            skip "${rows[i]}" "it failed: $(head -n 1 failure)"
        fi
    done
    rows=()
    rm -f times.*
    for _ in $(seq "$runs"); do
        for i in "${!commands[@]}"; do
            from=${EPOCHREALTIME/[.,]/}
            eval "${commands[i]}" >/dev/null 2>&1 || true
            to=${EPOCHREALTIME/[.,]/}
            echo $((to - from)) >>"times.$i"
        done
    done
    for i in "${!commands[@]}"; do
        show "${names[i]}" "$(median <"times.$i" | awk '{ printf "%.1f", $1 / 1000 }')"
    done
}

# paint NAME PROGRAM [WORD...]: the median time to the first painted window; one run more warms the caches.
paint() {
    local name=$1
    shift
    : >paints
    for _ in $(seq $((runs + 1))); do
        if ! "$build/zarn_first_paint" "$@" >>paints 2>failure; then
            skip "$name" "it failed: $(tail -n 1 failure)"
            return
        fi
    done
    show "$name" "$(tail -n +2 paints | median)"
}

[ -x "$build/zarn_make_reels" ] || { echo "$build holds no zarn_make_reels: build it first" >&2; exit 1; }
for notes in 1000 10000 23000 100000; do "$build/zarn_make_reels" "$notes" >"$notes.abc"; done

echo "machine: $(nproc) processors, $(awk -F': ' '/model name/ { print $2; exit }' /proc/cpuinfo); median of $runs runs"
for notes in 10000 100000; do
    add "svg, $notes notes: zarn" "$zarn" "$zarn -q -o z.svg $notes.abc"
    add "svg, $notes notes: abcm2ps" abcm2ps "abcm2ps -q -X -O a.xhtml $notes.abc"
    run
done

add "midi, 10000 notes: zarn" "$zarn" "$zarn -q -o z.mid 10000.abc"
add "midi, 10000 notes: abc2midi" abc2midi "abc2midi 10000.abc -o a.mid"
run
add "midi, 100000 notes: zarn" "$zarn" "$zarn -q -o z.mid 100000.abc"
run

# The same notes and the same font; the player reads the MIDI file that zarn wrote.
font=/usr/share/sounds/sf2/TimGM6mb.sf2
if has "$zarn" && [ -e "$font" ]; then
    "$zarn" -q -o 1000.mid 1000.abc
    add "wav, 1000 notes: zarn" "$zarn" "ZARN_SOUND_FONT=$font $zarn -q -o z.wav 1000.abc"
    add "wav, 1000 notes: fluidsynth" fluidsynth "fluidsynth -niq -T wav -F f.wav $font 1000.mid"
    run
else
    skip "wav, 1000 notes" "zarn or timgm6mb-soundfont isn't there"
fi

add "pdf, 10000 notes: zarn" "$zarn" "$zarn -q -o z.pdf 10000.abc"
if has ps2pdf; then
    add "pdf, 10000 notes: abcm2ps and ps2pdf" abcm2ps "abcm2ps -q -O a.ps 10000.abc && ps2pdf a.ps a.pdf"
else
    skip "pdf, 10000 notes: abcm2ps and ps2pdf" "ps2pdf isn't there"
fi
add "pdf, 100 pages: zarn" "$zarn" "$zarn -q -o z.pdf 23000.abc"
run

if has "$zarn" && "$zarn" -q -o 100000.zrn 100000.abc && "$zarn" -q -o 10000.zrn 10000.abc; then
    for ending in zrn abc mid; do
        add "a score of 10000 notes to .$ending: zarn" "$zarn" "$zarn -q -o s.$ending 10000.zrn"
    done
    add "opening a score of 100000 notes: zarn --check" "$zarn" "$zarn --check 100000.zrn"
fi
add "start and end: zarn --version" "$zarn" "$zarn --version"
run

if ! has Xvfb || [ ! -x "$build/zarn_first_paint" ]; then
    skip "first painted window" "Xvfb or zarn_first_paint isn't there"
    exit 0
fi
# The server picks a free display and tells its number; it must not start anew between two programs.
Xvfb -noreset -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3>display 2>/dev/null &
server=$!
for _ in $(seq 100); do
    [ -s display ] && break
    sleep 0.05
done
export DISPLAY=":$(cat display)"
export XDG_CONFIG_HOME=$work/config

# What any program of this kind pays: one empty window.
cat >empty.cpp <<'PROGRAM'
#include <QtWidgets/QApplication>
#include <QtWidgets/QMainWindow>
int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QMainWindow window;
    window.resize(1200, 800);
    window.show();
    return application.exec();
}
PROGRAM
if has pkg-config && pkg-config --exists Qt6Widgets; then
    ${CXX:-c++} -std=c++20 -O2 -fPIC empty.cpp -o empty $(pkg-config --cflags --libs Qt6Widgets)
    paint "first painted window: an empty Qt window" ./empty
else
    skip "first painted window: an empty Qt window" "qt6-base-dev isn't installed"
fi
if has "$zarn"; then
    paint "first window with music: zarn, a tune" --ink "$zarn" "$samples/cooley.abc"
    if [ -e 10000.zrn ]; then paint "first window with music: zarn, 10000 notes" --ink "$zarn" 10000.zrn; fi
else
    skip "first window with music: zarn" "not built"
fi
