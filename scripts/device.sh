# shellcheck shell=bash
# The device the program runs on: a folder that is its file system and a private Wine prefix that holds its
# registry. The folder is drive e: of the prefix; links at its root are storage cards.

readonly image=$house/platform/desktop/image
built=$house/build/desktop
! is_installed || built=$house/program
program_files=("$built"/{TarvikFileManager.exe,UNZip.dll})
readonly program_folder='Program Files/Tarvik File Manager'
data=$(realpath -m -- "${XDG_DATA_HOME:-$HOME/.local/share}/$package")

# Quiet, without offers to download Mono or Gecko, and without touching the desktop's menus.
export WINEARCH=win64 WINEDEBUG=${WINEDEBUG:--all} WINEDLLOVERRIDES='mscoree=;mshtml=;winemenubuilder.exe=d'

prepare_data_folder() {
    mkdir -p "$data/home" 2>/dev/null && [[ -w $data ]] ||
        fail "cannot write to $data" "Give yourself the right to, or set XDG_DATA_HOME to a folder of yours"
    [[ -O $data ]] || fail "$data belongs to somebody else" "Start as that user, or set XDG_DATA_HOME to a folder of yours"
}

# make_template: the prefix every device begins as. Made once, and again when Wine or the registry changes.
make_template() {
    local template=$data/template stamp
    stamp="$(wine --version) $(sha256sum <"$image/device.reg")"
    exec 8>"$data/template.lock"
    flock 8
    if [[ $(cat "$template/stamp" 2>/dev/null) != "$stamp" ]]; then
        say "Making the device's registry (once, about 20 seconds)"
        [[ ! -d $template.new ]] || WINEPREFIX=$template.new timeout 20 wineserver -k 2>/dev/null
        rm -rf "$template" "$template.new"
        WINEPREFIX=$template.new headless timeout 300 wineboot --init 8>&- &&
            import_registry "$template.new" 8>&- &&
            mv "$template.new" "$template" ||
            fail "Wine could not make a prefix in $data" "Is there room (1 GB)? Try: rm -r '$data/template.new'; WINEPREFIX=/tmp/try wineboot"
        printf '%s\n' "$stamp" >"$template/stamp"
    fi
    exec 8>&-
}

# headless COMMAND...: no window may come up, and the prefix gets no links to the user's own folders.
headless() {
    env -u DISPLAY -u WAYLAND_DISPLAY HOME="$data/home" "$@" >/dev/null 2>&1 </dev/null
}

# import_registry PREFIX: writes the device's associations and names, and waits until they are on disk.
import_registry() {
    WINEPREFIX=$1 headless timeout 120 wine regedit /S "$(WINEPREFIX=$1 winepath -w "$image/device.reg" 2>/dev/null)" &&
        WINEPREFIX=$1 wineserver -w
}

# copy_template PREFIX: a new prefix, there only when it is whole. Files are shared by hard links, but not the
# registry, which Wine writes.
copy_template() {
    rm -rf "$1.new" && cp -al "$data/template" "$1.new" &&
        cp --remove-destination "$data"/template/*.reg "$1.new" && mv -T "$1.new" "$1"
}

# needs_filling FOLDER: whether it is a new device's, or one whose filling was interrupted.
needs_filling() {
    [[ -z $(ls -A "$1") || -e $1/.filling ]]
}

# seed_folder FOLDER: lays the image's folders and files.
seed_folder() {
    "$image/seed.sh" "$1" >"$work/seed.log" 2>&1 || {
        tail -n 5 "$work/seed.log" >&2
        fail "cannot lay the device's files in $1" "See the lines above; is there room, and may you write there"
    }
}

# lay_program FOLDER: puts the program and its archiver where the device has them. A running copy keeps its
# old files.
lay_program() {
    local place=$1/$program_folder file
    for file in "${program_files[@]}"; do
        cmp -s "$file" "$place/$(basename "$file")" && continue
        mkdir -p "$place" && cp "$file" "$place/.new" && mv -f "$place/.new" "$place/$(basename "$file")" ||
            fail "cannot copy the program to $place" "Is there room, and may you write there"
    done
}

# connect PREFIX FOLDER: makes the folder the prefix's drive e:, and lays the way to the host's programs.
connect() {
    ln -sfn "$2" "$1/dosdevices/e:"
    install -m 755 -t "$1/drive_c/windows" "$house/platform/desktop/host/open_on_host" "$built/hosthand"
}

# root_of PREFIX: the folder that is its drive e:.
root_of() {
    readlink "$1/dosdevices/e:"
}

# lay_card FOLDER NAME DIR: a storage card is a link at the root, which goes with the run.
lay_card() {
    [[ -z $(find_entry "$1" "$2") ]] || fail "the device has '\\$2' already" "Choose another name for the card"
    note_link "$1/$2"
    ln -s "$3" "$1/$2" || fail "cannot make the card '$2' in $1" "May you write there"
}

# check_length PATH: refuses names that no disk takes.
check_length() {
    local LC_ALL=C part parts
    IFS=/ read -rd '' -a parts <<<"$1"
    for part in "${parts[@]}"; do
        ((${#part} <= 255)) || fail "a name is too long: ${part:0:40}..." "Take at most 255 bytes"
    done
}

# check_card NAME=DIR: refuses what the device could not show.
check_card() {
    local name=${1%%=*} dir=${1#*=}
    [[ $1 == *=* && -n $name ]] || fail "bad card '$1'" 'Write it as --card NAME=DIR, as in --card "SD Card=/media/usb"'
    [[ $name != *[\\/:*?\"\<\>\|]* && $name != *[.\ ] && $name != [.\ ]* ]] || fail "bad card name '$name'" \
        'Leave out \ / : * ? " < > | and blanks or dots at the ends'
    ((${#name} < 200)) || fail "bad card name: it is too long" "Take fewer than 200 characters"
    check_length "$name"
    check_length "$dir"
    [[ -d $dir ]] || fail "no such folder for card '$name': $dir" "Make it, or give another: --card '$name=DIR'"
}

# device_path FOLDER ROOT: how the device calls a folder: \Name already, or a folder of this machine that lies
# in the device or on one of its cards.
device_path() {
    local asked=$1 root=$2 found link target
    if [[ $asked == \\* ]]; then
        found=$(find_folder "$root" "${asked//\\//}") || fail "no such folder on the device: $asked" \
            "Start without it to see the folders there are"
        printf '%s' "$asked"
        return
    fi
    [[ -d $asked ]] || fail "no such folder: $asked" "Folders of the device begin with a backslash, as in '\\My Documents'"
    found=$(realpath -- "$asked")
    for link in "$root"/* "$root"; do
        [[ -L $link || $link == "$root" ]] || continue
        target=$(realpath -- "$link")
        if [[ $found == "$target" || $found == "${target%/}"/* ]]; then
            found=${found#"${target%/}"}
            [[ $link == "$root" ]] || found=/$(basename -- "$link")$found
            found=${found%/}
            printf '%s' "${found//\//\\}"
            return
        fi
    done
    fail "the device cannot see $asked" "Give it as a card: --card \"Card=$asked\""
}

# find_entry FOLDER NAME: the entry of that name, upper and lower case being the same; nothing if there is none.
find_entry() {
    find "$1/" -mindepth 1 -maxdepth 1 -iname "${2//[\[*?\\]/?}" -print -quit
}

# find_folder ROOT /a/b: whether the folder is there, upper and lower case being the same.
find_folder() {
    local at=$1 part parts
    IFS=/ read -ra parts <<<"$2"
    for part in "${parts[@]}"; do
        [[ -n $part ]] || continue
        at=$(find_entry "$at" "$part")
        [[ -n $at && -d $at ]] || return 1
    done
    printf '%s' "$at"
}

# process_of PREFIX NAME: the process of this name that runs there, if one does. The system keeps 15 characters of
# a name.
process_of() {
    local file
    for file in $(grep -lsxF "${2:0:15}" /proc/[0-9]*/comm); do
        file=${file%/comm}
        grep -qsxzF "WINEPREFIX=$1" "$file/environ" && printf '%s' "${file#/proc/}" && return
    done
    return 1
}

# start_program [WxH]: the program, showing $folder if that is set, in the virtual desktop "phone"; in the person's
# locale if it is $for_person. It keeps the device's lock (9) as long as anything runs there, whatever becomes of us.
start_program() {
    local argument=()
    [[ -z ${for_person:-} ]] || restore_locale
    [[ -z $folder ]] || argument=("$folder")
    # shellcheck disable=SC2154  # the caller's
    WINEPREFIX=$prefix exec setsid wine explorer "/desktop=phone${1:+,$1}" \
        "E:\\${program_folder//\//\\}\\TarvikFileManager.exe" ${argument[@]+"${argument[@]}"} \
        >/dev/null 2>&1 </dev/null
}
