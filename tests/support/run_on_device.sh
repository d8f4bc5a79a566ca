#!/usr/bin/env bash
# Runs a test executable on a fresh phone and ends with its exit code.
#
#   run_on_device.sh [--build FOLDER] [--phone] [--screen WxH] [--limit SECONDS] [--keep] TESTS.exe [GTEST OPTION...]
#
# With --build build/workbench all is of 32 bits; with --phone the program is then the phone's own executable.
#
# A phone is made as ./run makes it (scripts/device.sh and screen.sh): a Wine prefix of its own, an X screen of
# the phone's size, and a device folder as drive E:, seeded from the image and with the built program in \Program
# Files. Inside, the virtual desktop "phone" covers the screen. Everything ends with the tests, also after a
# failure.
#
# The tests find in their environment: TARVIK_DEVICE, the device folder; TARVIK_DEVICE_SEED, what it is reset
# to; TARVIK_SCREEN; TARVIK_FAILURES, the folder for screenshots. --keep leaves the phone's folder behind, as kept.N.
set -uo pipefail
# shellcheck source=scripts/lib.sh
source "$(dirname "${BASH_SOURCE[0]}")/../../scripts/lib.sh"
# shellcheck source=scripts/device.sh
source "$house/scripts/device.sh"
# shellcheck source=scripts/screen.sh
source "$house/scripts/screen.sh"
# shellcheck source=scripts/leftovers.sh
source "$house/scripts/leftovers.sh"
# shellcheck source=scripts/workbench.sh
source "$house/scripts/workbench.sh"

build=$house/build/desktop
screen=240x320
limit=300
phone_program=
keep=

while [[ ${1:-} == --* ]]; do
    case $1 in
        --build) build=$(cd "$2" && pwd); shift 2 ;;
        --phone) phone_program=1; shift ;;
        --screen) screen=$2; shift 2 ;;
        --limit) limit=$2; shift 2 ;;
        --keep) keep=1; shift ;;
        *) echo "unknown option $1" >&2; exit 2 ;;
    esac
done
tests=$1
shift

# What device.sh goes by: the tests' phones lie beside each other, and have the program but not its archiver,
# which tests put there themselves.
data=$build/phones
built=$build
program_files=("$build/TarvikFileManager.exe")
[[ -e ${program_files[0]} ]] || program_files=()
[[ $(basename "$build") != workbench ]] || use_wine32

# The same times on every machine; nine hours ahead, so that local times are not the world's.
export TZ=JST-9

# Inside the phone even the superuser is refused what permissions forbid, so that unreadable folders and
# read-only files are what they claim to be.
as_plain_user=()
if [[ $(id -u) == 0 ]]; then
    denied=-dac_override,-dac_read_search
    as_plain_user=(setpriv "--inh-caps=$denied" "--bounding-set=$denied")
fi

# --- What ends with the tests ---

work=
prefix=
runner=

end_phone() {
    trap '' INT TERM
    [[ -z $runner ]] || kill "$runner" 2>/dev/null
    [[ -z $prefix || ! -d $prefix ]] || WINEPREFIX=$prefix timeout 20 wineserver -k 2>/dev/null
    stop_services
    [[ -n $work ]] || return
    if [[ -n $keep ]]; then mv -T "$work" "$data/kept.$$"; else close_work "$work"; fi
}
trap end_phone EXIT
trap 'exit 143' INT TERM

# --- The phone ---

mkdir -p "$build/test-failures"
prepare_data_folder
make_template

clear_leftovers phone
open_work phone
prefix=$work/prefix
if [[ -n $phone_program ]]; then
    use_phone_program "$work"
    program_files=("${program_files[0]}")
fi
mkdir "$work"/{device,seed,home,run}
copy_template "$prefix" || fail "cannot make the prefix $prefix" "Is there room"
connect "$prefix" "$work/device"
# What the tests start is in the virtual desktop by itself.
cat >>"$prefix/user.reg" <<END

[Software\\\\Wine\\\\Explorer] 1
"Desktop"="phone"

[Software\\\\Wine\\\\Explorer\\\\Desktops] 1
"phone"="$screen"
END
seed_folder "$work/seed"
lay_program "$work/seed"
cp -a "$work/seed/." "$work/device/" || fail "cannot make the device $work/device" "Is there room"
start_screen "$screen"

# --- The tests ---

export WINEPREFIX=$prefix HOME=$work/home
export TARVIK_DEVICE=$work/device TARVIK_DEVICE_SEED=$work/seed TARVIK_SCREEN=$screen
# The host's programs have a stand-in.
export TARVIK_HOST=yes PATH=$house/tests/support/host:$PATH
export TARVIK_WORK=$work/run TARVIK_FAILURES=$build/test-failures

timeout --kill-after=10 "$limit" "${as_plain_user[@]}" wine "$tests" "$@" &
runner=$!
wait "$runner"
status=$?
runner=
[[ $status != 124 && $status != 137 ]] || echo "The tests did not end within $limit seconds." >&2
exit "$status"
