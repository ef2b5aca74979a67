# The Debian packages that Zarn needs, and how they get there. Sourced by run.sh and test.sh.

# To build and to run.
# (librtmidi-dev alone would bring the other JACK, whose libraries those of jackd2 would put out.)
packages_run="g++ cmake ninja-build pkgconf ccache mold qt6-base-dev fonts-dejavu-core
              librtmidi-dev libjack-jackd2-dev libfluidsynth-dev timgm6mb-soundfont"
# To make a Debian package besides.
packages_deb="dpkg-dev file gzip"
# To test besides.
packages_test="libgtest-dev libgmock-dev libbenchmark-dev xvfb xauth openbox xdotool x11-utils scrot poppler-utils
               librsvg2-bin libxml2-utils python3 python3-gi gir1.2-atspi-2.0 at-spi2-core dbus-daemon
               python3-mido abcmidi fluidsynth jackd2 pulseaudio pulseaudio-utils cups-daemon cups-client
               desktop-file-utils shared-mime-info libglib2.0-bin man-db appstream"
# To try the package in a system of its own.
packages_clean="mmdebstrap lintian"

# Installs what is missing of the packages named, and says what to do where it can't.
install_missing()
{
    command -v dpkg-query >/dev/null || { echo "This is no Debian: install by hand: $*" >&2; return 0; }
    missing=""
    for package in "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q '^install ok installed$' || missing="$missing $package"
    done
    [ -z "$missing" ] && return 0
    as_root=""
    if [ "$(id -u)" != 0 ]; then
        command -v sudo >/dev/null || { echo "Missing packages, and no sudo to install them:$missing" >&2; return 1; }
        as_root="sudo"
    fi
    echo "Installing:$missing"
    $as_root env DEBIAN_FRONTEND=noninteractive apt-get update -q >/dev/null &&
        $as_root env DEBIAN_FRONTEND=noninteractive apt-get install -qq -y --no-install-recommends $missing >/dev/null
}
