#!/usr/bin/env bash
# Goes the same way through the desktop program and through the phone's own executable, and compares what was on the
# screen, on the device and in the registry after each step.
#
#   compare_walks.sh BUILD
set -uo pipefail

build=$1
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
records=$build/walks
rm -rf "$records" && mkdir -p "$records" || exit

# walk NAME OPTION...: writes BUILD/walks/NAME.
walk() {
    TARVIK_WALK=$records/$1 "$here/../support/run_on_device.sh" --build "$build" --limit 600 "${@:2}" \
        "$build/tests/walk_tests.exe" >"$records/$1.log" 2>&1 || {
        cat "$records/$1.log"
        return 1
    }
}

# At the same time: both mostly wait.
walk desktop &
desktop=$!
walk phone --phone
phone=$?
wait "$desktop" && ((phone == 0)) || exit 1
diff -U 1000000 -F '^=== ' "$records/desktop" "$records/phone" >"$records/difference" && {
    echo "Equal after each of $(grep -c '^=== ' "$records/phone") steps."
    exit 0
}
echo "The phone's own executable (+) differs from the desktop program (-):"
awk '/^ === / { step = substr($0, 2) } /^[-+]/ && !/^(---|\+\+\+) / { if (step != told) print told = step; print }' \
    "$records/difference" | head -n 200
exit 1
