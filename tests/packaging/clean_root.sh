#!/bin/sh
# Installs the Debian package in a system that has nothing else, uses it there, and removes it.
#   clean_root.sh FILE.deb
# Needs mmdebstrap, and the machine's source of Debian packages, from which it fetches 200 MB.
set -e
deb=$(realpath "$1")
suite=$(. /etc/os-release && echo "$VERSION_CODENAME")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp "$deb" "$work/zarn.deb"

# What the new system runs. A step that fails ends it.
cat > "$work/check.sh" <<'END'
set -e
export DEBIAN_FRONTEND=noninteractive LC_ALL=C.UTF-8 HOME=/root
step() { echo "clean root: $*"; }
expect() { test "$1" = "$2" || { echo "\"$1\" instead of \"$2\""; exit 1; }; }
# Everything that isn't a directory, but for what any installation leaves behind.
files() { find / -xdev ! -type d ! -path '/proc/*' ! -path '/sys/*' ! -path '/tmp/*' ! -path '/root/*' \
    ! -path '/var/lib/apt/*' ! -path '/var/lib/dpkg/*' ! -path '/var/cache/*' ! -path '/var/log/*' | sort; }
# A double click on the file opens a window of that name, on a display that nobody sees. The display ends, and the
# program with it.
expect_to_open()
{
    rm -f /tmp/display
    Xvfb -displayfd 3 -screen 0 1000x700x24 -nolisten tcp 3>/tmp/display >/dev/null 2>&1 &
    server=$!
    timeout 30 sh -c 'until test -s /tmp/display; do :; done'
    export DISPLAY=":$(cat /tmp/display)"
    gio open "$1"
    timeout 30 sh -c 'until xwininfo -root -tree 2>/dev/null | grep -q "$0"; do :; done' "$2"
    kill $server
    wait $server || true
}

step "install"
apt-get install -qq -y --no-install-recommends man-db gzip >/dev/null
apt-get install -qq -y --no-install-recommends /tmp/zarn.deb >/dev/null
step "run"
expect "$(zarn --version)" "zarn $(dpkg-query -W -f '${Version}' zarn | sed 's/-.*//')"
cd /root
for ending in pdf png svg mid abc zrn; do
    zarn -q -o "tune.$ending" /usr/share/zarn/samples/cooley.abc
    test -s "tune.$ending"
done
if test -e /usr/lib/zarn/libzarn_sound.so; then
    zarn -q -o tune.wav /usr/share/zarn/samples/cooley.abc
    test -s tune.wav
fi
zarn -q --tablature -o tune.tab /usr/share/zarn/samples/skye-boat-song.abc
test -s tune.tab
man -w zarn >/dev/null
step "remove"
files > /tmp/with
apt-get purge -qq -y zarn >/dev/null
files > /tmp/without
dpkg-deb -c /tmp/zarn.deb | awk '{print substr($6, 2)}' | grep -v '/$' | sort > /tmp/held
comm -12 /tmp/held /tmp/without > /tmp/left
test ! -s /tmp/left || { cat /tmp/left; exit 1; }
comm -13 /tmp/with /tmp/without > /tmp/new
test ! -s /tmp/new || { cat /tmp/new; exit 1; }
test ! -e /usr/share/zarn
step "install again, with what a desktop has"
apt-get install -qq -y --no-install-recommends xvfb x11-utils libglib2.0-bin desktop-file-utils xdg-utils dbus-x11 \
    /tmp/zarn.deb >/dev/null
expect "$(xdg-mime query default application/x-zarn)" zarn.desktop
expect "$(xdg-mime query default text/vnd.abc)" zarn.desktop
gio info -a standard::content-type tune.zrn | grep -q ': application/x-zarn$'
gio info -a standard::content-type tune.abc | grep -q ': text/vnd.abc$'
step "open by a double click"
expect_to_open /usr/share/zarn/samples/cooley.abc "Cooley's"
cp tune.zrn nameless
expect_to_open nameless /root/nameless
step "all well"
END

# With processes of its own: whatever a check leaves running ends with it.
mmdebstrap --quiet --variant=apt --format=null --customize-hook="copy-in '$work/zarn.deb' '$work/check.sh' /tmp" \
    --customize-hook='unshare --fork --pid --kill-child --mount \
        sh -c "mount -t proc proc \"\$0/proc\" && exec chroot \"\$0\" sh /tmp/check.sh" "$1"' "$suite"
