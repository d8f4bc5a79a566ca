#!/usr/bin/env bash
# Checks the user manual: that it is current, well-formed and complete, that its links and pictures are there,
# and that a device gets it. Says what is wrong; silent when all is well.
set -uo pipefail
# shellcheck source=scripts/lib.sh
source "$(dirname "${BASH_SOURCE[0]}")/../../scripts/lib.sh"

readonly windows=$house/platform/desktop/image/files/Windows name='File Manager_user_manual'
readonly manual="$windows/$name.htm"
work=$(mktemp -d) || fail "cannot make a temporary folder" "Is there room in ${TMPDIR:-/tmp}"
trap 'rm -rf "$work"' EXIT
wrong=0

# complain TEXT
complain() {
    printf 'The manual: %s\n' "$1"
    wrong=1
}

# attribute NAME: the values of that attribute in the manual, one a line.
attribute() {
    grep -oP "\b$1=\"\K[^\"]*" "$manual" | sort -u
}

check_form() {
    # Summaries of tables are for speech readers of long ago.
    tidy -quiet -errors "$manual" 2>&1 | grep -v 'lacks "summary" attribute' >"$work/form" || return
    complain "is not well-formed: $(<"$work/form")"
}

check_links() {
    local link
    while read -r link; do
        attribute name | grep -qxF -- "${link#\#}" || complain "the link $link leads nowhere"
    done < <(attribute href)

    attribute src | sed 's/%20/ /g' >"$work/shown"
    (cd "$windows" && find "$name" -type f | sort) >"$work/there"
    while read -r link; do complain "the picture $link is not there"; done < <(sort "$work/shown" | comm -23 - "$work/there")
}

# commands: the texts of all menus.
commands() {
    grep -hoP '^ +MENUITEM "\K[^"]*' "$house"/resources/*.rc | sed 's/ *$//'
    grep -hoP '^ +POPUP "\K[^"0-9][^"]*' "$house/resources/menus.rc"
}

# keys: the keys that the list knows, as the manual writes them.
keys() {
    sed -n "s/.*/&/; s/{With::/\n&/gp" "$house/filelist/list_input.cpp" |
        sed -nE "s/^\{With::(Any|Ctrl|Alt), '?(VK_)?([A-Z0-9]+)'?, .*/\1+\3/p" |
        sed -e 's/^Any+//' -e 's/RIGHT/Right/' -e 's/LEFT/Left/' -e 's/BACK/Backspace/' -e 's/DELETE/Delete/' -e 's/CONTROL/Ctrl/'
    printf '%s\n' Tab Shift+Tab Home End Alt+1 Ctrl+1
}

check_completeness() {
    local text
    sed -e 's/<[^>]*>//g' -e 's/&#39;/'"'"'/g' -e 's/&#38;/\&/g' "$manual" >"$work/text"
    while read -r text; do
        grep -qF -- "$text" "$work/text" || complain "does not tell of the command \"$text\""
    done < <(commands | sort -u)
    while read -r text; do
        grep -qE "(^|[^A-Za-z+])${text//+/\\+}([^A-Za-z0-9]|$)" "$work/text" || complain "does not tell of the key $text"
    done < <(keys | sort -u)
    (($(keys | wc -l) > 20 && $(commands | wc -l) > 50)) || complain "the program's keys and commands could not be read"
}

# A new device has it, and an old one gets it.
check_device() {
    local device=$work/device
    "$house/platform/desktop/image/seed.sh" "$device" && cmp -s "$manual" "$device/Windows/$name.htm" ||
        complain "a new device does not have it"
    echo old >"$device/Windows/$name.htm"
    rm -r "${device:?}/Windows/$name"
    "$house/platform/desktop/image/seed.sh" "$device" && cmp -s "$manual" "$device/Windows/$name.htm" &&
        diff -r "$windows/$name" "$device/Windows/$name" >/dev/null || complain "an old device does not get it"
}

need lowdown tidy
"$house/packaging/manual/build.sh" --check || wrong=1
check_form
check_links
check_completeness
check_device
exit "$wrong"
