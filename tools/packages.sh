# Sourced by run.sh, test.sh and bench.sh: installs what is missing with apt, listing it first.

build_packages=(g++ cmake ninja-build qtbase5-dev qtbase5-dev-tools qtmultimedia5-dev libqwt-qt5-dev)
run_packages=(libqt5multimedia5-plugins gstreamer1.0-plugins-good)
headless_packages=(xvfb xauth)
benchmark_packages=(pkg-config sox libimage-exiftool-perl libbenchmark-dev libfftw3-dev libkissfft-dev)

# need PACKAGE... : returns with all of them installed, or ends the script with a clear message.
need() {
    if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
        if command -v cmake >/dev/null && command -v ninja >/dev/null; then
            echo "This system has no apt; going on with what is installed." >&2
            return
        fi
        echo "This system has no apt, so nothing can be installed from here." >&2
        echo "Install what these Debian packages stand for, then start again:" >&2
        echo "  $*" >&2
        exit 1
    fi
    local missing=() package
    for package in "$@"; do
        if ! dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q ' installed$'; then
            missing+=("$package")
        fi
    done
    if [ ${#missing[@]} -eq 0 ]; then
        return
    fi
    echo "These packages are missing and will be installed with apt:"
    echo "  ${missing[*]}"
    local root=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "Neither root nor sudo: install them yourself, then start again." >&2
            exit 1
        fi
        root=(sudo)
    fi
    "${root[@]}" apt-get update -qq
    "${root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}"
}

# configure PRESET [ARGUMENT...] : configures quietly, showing the log only when it fails.
configure() {
    mkdir -p build
    if ! cmake --preset "$@" >build/configure.log 2>&1; then
        cat build/configure.log >&2
        exit 1
    fi
}
