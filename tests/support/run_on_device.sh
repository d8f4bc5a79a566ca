#!/usr/bin/env bash
# Runs a test executable on a fresh phone and ends with its exit code.
#
#   run_on_device.sh [--build FOLDER] [--screen WxH] [--limit SECONDS] [--keep] TESTS.exe [GTEST OPTION...]
#
# A phone is a Wine prefix of its own (a cheap copy of a template), an X screen of the phone's size, and a
# device folder as drive E:, seeded from the image and with the built program in \Program Files. Inside, the
# virtual desktop "phone" covers the screen. Everything ends with the tests, also after a failure.
#
# The tests find in their environment: TARVIK_DEVICE, the device folder; TARVIK_DEVICE_SEED, what it is reset
# to; TARVIK_SCREEN; TARVIK_FAILURES, the folder for screenshots. --keep leaves the phone's folder behind.
set -euo pipefail

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
project=$(cd "$here/../.." && pwd)
image=$project/platform/desktop/image
build=$project/build/desktop
screen=240x320
limit=300
keep=

while [[ ${1:-} == --* ]]; do
    case $1 in
        --build) build=$(cd "$2" && pwd); shift 2 ;;
        --screen) screen=$2; shift 2 ;;
        --limit) limit=$2; shift 2 ;;
        --keep) keep=1; shift ;;
        *) echo "unknown option $1" >&2; exit 2 ;;
    esac
done
tests=$1
shift

phones=$build/phones
template=$phones/template
export WINEDEBUG=${WINEDEBUG:--all}
export WINEDLLOVERRIDES='mscoree,mshtml=;winemenubuilder.exe=d'
# The same texts and times on every machine; nine hours ahead, so that local times are not the world's.
export LC_ALL=C.UTF-8 TZ=JST-9

# Inside the phone even the superuser is refused what permissions forbid, so that unreadable folders and
# read-only files are what they claim to be.
as_plain_user=()
if [[ $(id -u) == 0 ]]; then
    denied=-dac_override,-dac_read_search
    as_plain_user=(setpriv "--inh-caps=$denied" "--bounding-set=$denied")
fi

# Makes the template prefix once; later runs copy it. Made anew when the device's registry changes.
make_template() {
    [[ -e $template/ready && ! $image/device.reg -nt $template/ready ]] && return
    echo "Preparing the phone's template (once)..."
    rm -rf "$template"
    mkdir -p "$template/home"
    (
        export WINEPREFIX=$template/prefix HOME=$template/home
        unset DISPLAY
        wineboot -i
        if [[ -e $image/device.reg ]]; then
            wine regedit /S "$image/device.reg"
        fi
        wineserver -w
    ) >"$template/log" 2>&1
    touch "$template/ready"
}

mkdir -p "$phones" "$build/test-failures"
exec 9>"$phones/lock"
flock 9
make_template
flock -u 9
exec 9>&-

phone=$(mktemp -d "$phones/phone.XXXXXX")
xvfb=
runner=

end_phone() {
    trap - EXIT
    [[ -n $runner ]] && kill "$runner" 2>/dev/null
    WINEPREFIX=$phone/prefix timeout 20 wineserver -k 2>/dev/null
    [[ -n $xvfb ]] && kill "$xvfb" 2>/dev/null
    if [[ -z $keep ]]; then
        chmod -R u+rwX "$phone" 2>/dev/null
        rm -rf "$phone"
    fi
}
trap 'set +e; end_phone' EXIT
trap 'exit 143' INT TERM

# The prefix: folders hard-linked, registry files really copied, for Wine rewrites them.
cp -al "$template/prefix" "$phone/prefix"
cp --remove-destination "$template/prefix"/*.reg "$phone/prefix/"
ln -sfn "$phone/device" "$phone/prefix/dosdevices/e:"
install -m 755 "$project/platform/desktop/host/open_on_host" "$phone/prefix/drive_c/windows/"
cat >>"$phone/prefix/user.reg" <<EOF

[Software\\\\Wine\\\\Explorer] 1
"Desktop"="phone"

[Software\\\\Wine\\\\Explorer\\\\Desktops] 1
"phone"="$screen"
EOF

# The device folder, and beside it the seed that tests reset it to.
mkdir -p "$phone/device" "$phone/seed" "$phone/home" "$phone/run"
if [[ -e $image/seed.sh ]]; then
    bash "$image/seed.sh" "$phone/seed" >/dev/null
fi
if [[ -e $build/TarvikFileManager.exe ]]; then
    mkdir -p "$phone/seed/Program Files/Tarvik File Manager"
    cp "$build/TarvikFileManager.exe" "$phone/seed/Program Files/Tarvik File Manager/"
fi
cp -a "$phone/seed/." "$phone/device/"

# The X screen.
exec 8<>"$phone/run/display"
Xvfb -displayfd 8 -screen 0 "${screen}x24" -nolisten tcp >"$phone/run/xvfb.log" 2>&1 9>&- &
xvfb=$!
for ((tries = 0; tries < 100; tries++)); do
    [[ -s $phone/run/display ]] && break
    sleep 0.1
done
exec 8>&-
[[ -s $phone/run/display ]] || { echo "The X screen did not start:" >&2; cat "$phone/run/xvfb.log" >&2; exit 1; }

DISPLAY=:$(tr -d '[:space:]' <"$phone/run/display")
export DISPLAY
export WINEPREFIX=$phone/prefix HOME=$phone/home
export TARVIK_DEVICE=$phone/device TARVIK_DEVICE_SEED=$phone/seed TARVIK_SCREEN=$screen
# The host's programs have a stand-in.
export TARVIK_HOST=yes PATH=$here/host:$PATH
export TARVIK_WORK=$phone/run TARVIK_FAILURES=$build/test-failures

timeout --kill-after=10 "$limit" "${as_plain_user[@]}" wine "$tests" "$@" &
runner=$!
status=0
wait "$runner" || status=$?
runner=
[[ $status == 124 || $status == 137 ]] && echo "The tests did not end within $limit seconds." >&2
exit "$status"
