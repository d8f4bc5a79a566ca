#!/usr/bin/env bash
# Lets a monkey loose on the program: see usage.
set -uo pipefail
# shellcheck source=scripts/lib.sh
source "$(dirname "${BASH_SOURCE[0]}")/scripts/lib.sh"

usage() {
    cat <<'END'
Presses keys, taps, gives commands, sends messages and hands folders over at random, while others change files, and
watches that the program lives, answers, can be left by keys, holds no more and more, and changes nothing that nobody
asked it to. Each round has a seed of its own: the same seed does the same. Ends non-zero at the first fault, with its
seed; the picture and the log of what was done are in build/desktop/test-failures.

  ./monkey               for 2 minutes
  ./monkey --minutes N   for so long
  ./monkey --seed N      begins with this seed (1)
  ./monkey --screen WxH  the phone's screen: 240x320 (as it comes), 320x240 or 176x220
END
}

seed=1
minutes=2
screen=240x320
while (($#)); do
    case $1 in
        -h | --help) usage; exit 0 ;;
        --seed | --minutes)
            [[ ${2:-} =~ ^[1-9][0-9]{0,8}$ ]] || fail "$1 needs a number" "See ./monkey --help"
            if [[ $1 == --seed ]]; then seed=$2; else minutes=$2; fi
            shift ;;
        --screen)
            [[ ${2:-} == @(240x320|320x240|176x220) ]] || fail "no phone has the screen '${2:-}'" "See ./monkey --help"
            screen=$2
            shift ;;
        *) fail "unknown option '$1'" "See ./monkey --help" ;;
    esac
    shift
done

need "${build_tools[@]}" "${wine_tools[@]}" "${screen_tools[@]}"
say "Building"
build desktop TarvikFileManager monkey
say "Letting it loose"
"$house/tests/support/run_on_device.sh" --screen "$screen" --limit $((minutes * 60 + 600)) \
    "$house/build/desktop/tests/monkey.exe" "$seed" $((minutes * 60)) 2000
