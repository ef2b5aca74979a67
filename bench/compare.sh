#!/bin/bash
# Whole runs side by side, on tunes made by rule: converting, opening, starting. Figures, never pass or fail.
#
#   bench/compare.sh [BUILD_FOLDER]      default: build/release; a folder that holds zarn and zarn_make_reels
#   RUNS=20 bench/compare.sh             how many runs of each; the median is shown
#
# What isn't there is left out with a line that says so. On Debian: abcm2ps, abcmidi, fluidsynth, ghostscript (ps2pdf),
# hyperfine, xvfb, pkg-config, qt6-base-dev and libxcb1-dev.
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

# row NAME COMMAND: the median time of a shell command in milliseconds; a command that fails is told, not timed.
row() {
    local name=$1 command=$2
    if ! sh -c "$command" >/dev/null 2>failure; then
        skip "$name" "it failed: $(head -n 1 failure)"
        return
    fi
    if has hyperfine; then
        hyperfine --shell=sh --warmup 1 --runs "$runs" --style none --export-json times.json "$command" >/dev/null 2>&1
        show "$name" "$(awk -F'[:,]' '/"median"/ { printf "%.1f", $2 * 1000 }' times.json)"
    else
        for _ in $(seq "$runs"); do
            local from to
            from=$(date +%s%N)
            sh -c "$command" >/dev/null 2>&1
            to=$(date +%s%N)
            echo $(((to - from) / 10000)) | awk '{ printf "%.1f\n", $1 / 100 }'
        done | median | { read -r m && show "$name" "$m"; }
    fi
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
for notes in 10000 100000; do "$build/zarn_make_reels" "$notes" >"$notes.abc"; done
have_zarn=1
[ -x "$zarn" ] || have_zarn=

echo "machine: $(nproc) processors, $(awk -F': ' '/model name/ { print $2; exit }' /proc/cpuinfo); median of $runs runs"
for notes in 10000 100000; do
    if [ "$have_zarn" ]; then row "svg, $notes notes: zarn" "$zarn -q -o z.svg $notes.abc"; else skip "svg, $notes notes: zarn" "not built"; fi
    if has abcm2ps; then row "svg, $notes notes: abcm2ps" "abcm2ps -q -X -O a.xhtml $notes.abc"; else skip "svg, $notes notes: abcm2ps" "abcm2ps isn't installed"; fi
done

if [ "$have_zarn" ]; then row "midi, 10000 notes: zarn" "$zarn -q -o z.mid 10000.abc"; else skip "midi, 10000 notes: zarn" "not built"; fi
if has abc2midi; then row "midi, 10000 notes: abc2midi" "abc2midi 10000.abc -o a.mid"; else skip "midi, 10000 notes: abc2midi" "abcmidi isn't installed"; fi
if [ "$have_zarn" ]; then row "midi, 100000 notes: zarn" "$zarn -q -o z.mid 100000.abc"; else skip "midi, 100000 notes: zarn" "not built"; fi

# The same notes and the same font; the player reads the MIDI file that zarn wrote.
font=/usr/share/sounds/sf2/TimGM6mb.sf2
if [ "$have_zarn" ] && [ -e "$font" ]; then
    "$build/zarn_make_reels" 1000 >1000.abc
    "$zarn" -q -o 1000.mid 1000.abc
    export ZARN_SOUND_FONT=$font
    row "wav, 1000 notes: zarn" "$zarn -q -o z.wav 1000.abc"
    if has fluidsynth; then
        row "wav, 1000 notes: fluidsynth" "fluidsynth -niq -T wav -F f.wav $font 1000.mid"
    else
        skip "wav, 1000 notes: fluidsynth" "fluidsynth isn't installed"
    fi
else
    skip "wav, 1000 notes: zarn" "not built, or timgm6mb-soundfont isn't installed"
fi

if [ "$have_zarn" ]; then row "pdf, 10000 notes: zarn" "$zarn -q -o z.pdf 10000.abc"; else skip "pdf, 10000 notes: zarn" "not built"; fi
"$build/zarn_make_reels" 23000 >pages.abc
if [ "$have_zarn" ]; then row "pdf, 100 pages: zarn" "$zarn -q -o z.pdf pages.abc"; else skip "pdf, 100 pages: zarn" "not built"; fi
if has abcm2ps && has ps2pdf; then
    row "pdf, 10000 notes: abcm2ps and ps2pdf" "abcm2ps -q -O a.ps 10000.abc && ps2pdf a.ps a.pdf"
else
    skip "pdf, 10000 notes: abcm2ps and ps2pdf" "abcm2ps or ghostscript isn't installed"
fi

if [ "$have_zarn" ] && "$zarn" -q -o 100000.zrn 100000.abc && "$zarn" -q -o 10000.zrn 10000.abc; then
    row "opening a score of 100000 notes: zarn --check" "$zarn --check 100000.zrn"
else
    skip "opening a score of 100000 notes: zarn --check" "not built, or no score could be written"
fi
if [ "$have_zarn" ]; then row "start and end: zarn --version" "$zarn --version"; else skip "start and end: zarn --version" "not built"; fi

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
if [ "$have_zarn" ]; then
    paint "first window with music: zarn, a tune" --ink "$zarn" "$samples/cooley.abc"
    if [ -e 10000.zrn ]; then paint "first window with music: zarn, 10000 notes" --ink "$zarn" 10000.zrn; fi
else
    skip "first window with music: zarn" "not built"
fi
