# shellcheck shell=bash
# What ./run, ./test, ./lint and ./package share: how they talk, and how they get the tools they need.

# The project's own folder, wherever the script was called from.
house=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd -P)
readonly house

# What the packages and the command they install are called.
# shellcheck disable=SC2034  # not every script needs it
readonly package=tarvik-file-manager

# is_installed: whether this is the house as ./package lays it, with its program ready and nothing to build.
is_installed() {
    [[ -d $house/program ]]
}

# product_version: as the program itself has it, "1.20".
product_version() {
    sed -n 's/.*VALUE "ProductVersion", "\(.*\)"/\1/p' "$house/resources/version.rc"
}

# File names outside ASCII need a UTF-8 locale; the pictures and tests the same one everywhere. What is a person's
# gets the person's back.
persons_locale=${LC_ALL:-}
export LC_ALL=C.UTF-8

# restore_locale: the person's own, as far as file names allow.
restore_locale() {
    export LC_ALL=$persons_locale
    [[ -n $LC_ALL ]] || unset LC_ALL
    [[ $(locale charmap 2>/dev/null) != UTF-8 ]] || return
    if [[ -n ${LC_ALL:-} ]]; then
        unset "${!LC_@}"
        export LANG=$persons_locale
    fi
    export LC_CTYPE=C.UTF-8
}

# Some services start without it.
export HOME=${HOME:-$(getent passwd "$(id -u)" | cut -d: -f6)}

# say TEXT: one progress line.
say() {
    printf '\e[36m»\e[0m %s\n' "$*" >&2
}

# fail WHAT MEND: ends the script with one line that says what is wrong and how to mend it.
fail() {
    printf '\e[31m%s: %s.\e[0m %s.\n' "$(basename "$0")" "$1" "$2" >&2
    exit 1
}

# Colours are for people only.
if [[ ! -t 2 ]]; then
    say() { printf '» %s\n' "$*" >&2; }
    fail() {
        printf '%s: %s. %s.\n' "$(basename "$0")" "$1" "$2" >&2
        exit 1
    }
fi

# has TOOL: whether a command, or a file given by its full path, is there.
has() {
    if [[ $1 == /* ]]; then [[ -e $1 ]]; else command -v "$1" >/dev/null; fi
}

# Which of Debian's packages brings a tool.
declare -rA package_of=(
    [7z]=p7zip-full
    [apt-get]=apt
    [arm-none-eabi-g++]=gcc-arm-none-eabi
    [cabextract]=cabextract
    [chromedriver]=chromium-driver
    [chromium]=chromium
    [clang]=clang
    [clang-format]=clang-format
    [clang-tidy]=clang-tidy
    [cmake]=cmake
    [cppcheck]=cppcheck
    [dpkg-deb]=dpkg
    [dpkg-source]=dpkg-dev
    [file]=file
    [g++]=g++
    [gcab]=gcab
    [gcc]=gcc
    [i686-w64-mingw32-g++-posix]=g++-mingw-w64-i686-posix
    [i686-w64-mingw32-windres]=binutils-mingw-w64-i686
    [import]=imagemagick
    [ld.lld]=lld
    [lha]=lhasa
    [llvm-readobj]=llvm
    [lowdown]=lowdown
    [mogrify]=imagemagick
    [ninja]=ninja-build
    [openssl]=openssl
    [osslsigncode]=osslsigncode
    [shellcheck]=shellcheck
    [tidy]=tidy
    [unzip]=unzip
    [wine]='wine wine64'
    [x11vnc]=x11vnc
    [x86_64-w64-mingw32-g++-posix]=g++-mingw-w64-x86-64-posix
    [x86_64-w64-mingw32-windres]=binutils-mingw-w64-x86-64
    [xauth]=xauth
    [xdotool]=xdotool
    [xdpyinfo]=x11-utils
    [xwininfo]=x11-utils
    [Xvfb]=xvfb
    [zip]=zip
    [/lib/ld-linux.so.2]=libc6-i386
    [/usr/bin/python3]=python3
    [/usr/lib/python3/dist-packages/pefile.py]=python3-pefile
    [/usr/lib/python3/dist-packages/selenium]=python3-selenium
    [/usr/lib/python3/dist-packages/unicorn]=python3-unicorn
    [/usr/lib/python3/dist-packages/websockify]=python3-websockify
    [/usr/i686-w64-mingw32/include/zlib.h]=libz-mingw-w64-dev
    [/usr/share/fonts/truetype/liberation]=fonts-liberation
    [/usr/share/novnc/core/rfb.js]=novnc
    [/usr/share/wine/fonts]=fonts-wine
    [/usr/src/googletest/CMakeLists.txt]=googletest
    [/usr/include/zlib.h]=zlib1g-dev
    [/usr/lib/llvm-14/lib/clang/14.0.6/lib/linux]=libclang-rt-14-dev
    [/usr/x86_64-w64-mingw32/include/zlib.h]=libz-mingw-w64-dev
)

# The tools that build the program, those that run it, and those that make a screen and its picture.
# shellcheck disable=SC2034  # no script needs all of them
readonly build_tools=(cmake ninja g++ x86_64-w64-mingw32-g++-posix x86_64-w64-mingw32-windres ld.lld
    /usr/src/googletest/CMakeLists.txt /usr/x86_64-w64-mingw32/include/zlib.h dpkg-source)
# shellcheck disable=SC2034
readonly wine_tools=(wine /usr/share/wine/fonts /usr/share/fonts/truetype/liberation)
# Those that make the phone's executable, beside the above, and those that look at it.
# shellcheck disable=SC2034
readonly device_tools=(arm-none-eabi-g++ /usr/bin/python3)
# shellcheck disable=SC2034
readonly device_test_tools=(file llvm-readobj /usr/lib/python3/dist-packages/{pefile.py,unicorn})
# Those that make the phone's installer, and those that look at it.
# shellcheck disable=SC2034
readonly cab_tools=(gcab mogrify)
# shellcheck disable=SC2034
readonly cab_test_tools=(cabextract openssl osslsigncode)
# The tools of others that the tests exchange archives with.
# shellcheck disable=SC2034
readonly archive_tools=(7z lha unzip zip /usr/bin/python3)
# shellcheck disable=SC2034
readonly screen_tools=(Xvfb xauth import xwininfo)
# Those that show the screen in a web browser.
# shellcheck disable=SC2034
readonly page_tools=(x11vnc /usr/bin/python3 /usr/lib/python3/dist-packages/websockify /usr/share/novnc/core/rfb.js)

# need TOOL...: installs what is missing of the tools, from Debian's packages.
need() {
    local tool missing=()
    for tool; do
        # shellcheck disable=SC2206  # a tool may come in several packages
        has "$tool" || missing+=(${package_of[$tool]})
    done
    ((${#missing[@]} == 0)) || install_packages "${missing[@]}"
    for tool; do
        has "$tool" || fail "'$tool' is still missing after its package was installed" \
            "Look whether PATH leads to it, or reinstall ${package_of[$tool]}"
    done
}

install_packages() {
    local packages="$*" as_root=() log
    ! is_installed || fail "these packages are missing: $packages" "Install them: sudo apt install $packages"
    has apt-get || fail "these packages are missing and there is no apt-get: $packages" \
        "Install them by your system's own means (the scripts are made for Debian 12)"
    if ((EUID != 0)); then
        has sudo || fail "these packages are missing: $packages" \
            "Install sudo, or as root: apt-get install $packages"
        [[ -t 0 ]] || sudo -n true 2>/dev/null || fail "these packages are missing and sudo asks for a password: $packages" \
            "Start it from a terminal, or first: sudo apt-get install $packages"
        as_root=(sudo)
    fi

    say "Installing $packages"
    log=$(mktemp -d) || fail "cannot make a temporary folder" "Is there room in ${TMPDIR:-/tmp}"
    local apt=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -y -o DPkg::Lock::Timeout=300)
    # Other people's sources may be gone: what counts is whether the packages come.
    "${apt[@]}" update >"$log/update" 2>&1 </dev/null
    "${apt[@]}" install --no-install-recommends --no-remove "$@" >"$log/install" 2>&1 </dev/null && rm -r "$log" && return

    tail -n 15 "$log/install" >&2
    local offline='resolv|connect to|Connection|timed out|unreachable'
    if grep -qE "$offline" "$log/install" ||
        { grep -q '^E: Unable to locate' "$log/install" && grep -qE "$offline" "$log/update"; }; then
        rm -r "$log"
        fail "no network: Debian's packages cannot be reached, and these are missing: $packages" \
            "Connect and start again"
    fi
    rm -r "$log"
    fail "installing failed: $packages" "See the lines above; the packages are those of Debian 12"
}

# build PRESET [TARGET...]: configures and compiles.
build() {
    configure "$1"
    compile "$@"
}

# configure PRESET
configure() {
    check_build_folder "$1"
    "$house/scripts/fetch_sources" || exit
    log_run "$1" cmake --preset "$1"
}

# compile PRESET [TARGET...]: what is configured, showing the log's end when that fails.
compile() {
    local preset=$1
    shift
    log_run "$preset" cmake --build --preset "$preset" ${1:+--target "$@"}
}

# check_build_folder PRESET: it must be ours, with what lies there for this preset. It is not after a build as
# root.
check_build_folder() {
    local place
    mkdir -p "$house/build" 2>/dev/null
    for place in "$house/build"{,/lock,"/$1.log","/$1","/$1/CMakeCache.txt","/$1/.ninja_log",/sources,/sources/lock}; do
        [[ ! -e $place || -w $place ]] || fail "cannot write to $place, which belongs to $(stat -c %U "$place")" \
            "Take the folder over: sudo chown -R $(id -un) '$house/build'; or clone afresh"
    done
    [[ -d $house/build ]] || fail "cannot make $house/build in a folder of $(stat -c %U "$house")" \
        "Give yourself the right to, or clone afresh"
}

# follow_build: hands on what a build says, and shows how far it is: on a terminal in a line that changes, else at
# every quarter of one that takes long.
follow_build() {
    local line percent shown=0
    while IFS= read -r line; do
        printf '%s\n' "$line"
        [[ $line =~ ^\[([0-9]+)/([0-9]+)\] ]] || continue
        percent=$((BASH_REMATCH[1] * 100 / BASH_REMATCH[2]))
        if [[ -t 2 ]]; then
            printf '\r  %d of %d (%d %%)\e[K' "${BASH_REMATCH[@]:1}" "$percent" >&2
        elif ((BASH_REMATCH[2] >= 40 && percent / 25 > shown)); then
            shown=$((percent / 25))
            say "  $percent %"
        fi
    done
    [[ ! -t 2 ]] || printf '\r\e[K' >&2
}

# log_run PRESET COMMAND...: runs a step of the build, its output into build/PRESET.log. One at a time: the tests
# start what builds, too.
log_run() {
    local log=$house/build/$1.log
    shift
    (flock 6 && cd "$house" && "$@" 2>&1 </dev/null 6>&- | follow_build >"$log") 6>"$house/build/lock" || {
        tail -n 30 "$log" >&2
        fail "building failed" "See the lines above (all of it: $log); after moving the folder: rm -r build"
    }
}
