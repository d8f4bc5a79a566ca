#!/usr/bin/env bash
# Makes a device folder: its folders, the files in its ROM, and the first time the samples too.
#
#   seed.sh DEVICE
#
# What is there already stays, so that a user's changes and deletions last. The manual belongs to the program: it
# is always the present one. A folder without \Windows is a new device: it gets everything, \Windows last and no
# file by half, so that one that was interrupted is completed by the next call; until then it has .filling.
set -euo pipefail

image=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
if (($# != 1)) || [[ -z $1 ]]; then
    echo "usage: seed.sh DEVICE" >&2
    exit 2
fi
device=$1
filling=$device/.filling

# lay_folders FOLDER: those of the image.
lay_folders() {
    mkdir -p "$1" && (cd "$1" && xargs -d '\n' mkdir -p <"$image/folders.txt")
}

# fill: lays everything in a new device.
fill() {
    rm -rf "$filling"
    lay_folders "$filling/new"
    cp -r "$image/files/." "$filling/new"
    chmod -R u=rwX,go=rX "$filling/new"
    mv "$filling/new/Windows" "$filling/Windows"
    # Links are whole at once. Not every disk has them.
    cp -rln "$filling/new/." "$device" 2>/dev/null || cp -rn "$filling/new/." "$device"
    mv "$filling/Windows" "$device/Windows"
}

# bring_back: lays the folders and the ROM's files that are missing, and the present manual.
bring_back() {
    local manual="$image/files/Windows/File Manager_user_manual" file place
    lay_folders "$device"
    while IFS= read -r -d '' file; do
        place=$device/${file#"$image/files/"}
        if [[ ! -e $place ]] || { [[ $file == "$manual"* ]] && ! cmp -s "$file" "$place"; }; then
            mkdir -p "$filling" "$(dirname "$place")"
            install -m 644 "$file" "$filling/file"
            mv -f "$filling/file" "$place"
        fi
    done < <(find "$image/files/Windows"/*.* "$manual" -type f -print0)
}

if [[ -e $device/Windows ]]; then bring_back; else fill; fi
rm -rf "$filling"
