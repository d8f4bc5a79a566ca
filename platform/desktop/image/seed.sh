#!/usr/bin/env bash
# Makes a device folder: its folders, the files in its ROM, and the first time the samples too.
#
#   seed.sh [--fresh] DEVICE
#
# What is there already stays, so that a user's changes and deletions last; with --fresh every file of the
# image is laid anew. The manual belongs to the program: it is always the present one.
set -euo pipefail

image=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
fresh=
if [[ ${1:-} == --fresh ]]; then
    fresh=1
    shift
fi
if (($# != 1)) || [[ -z $1 ]]; then
    echo "usage: seed.sh [--fresh] DEVICE" >&2
    exit 2
fi
device=$1

# A folder without \Windows is a new device: it gets everything. Any other only gets its ROM back.
manual="$image/files/Windows/File Manager_user_manual"
files=("$image/files/Windows"/*.* "$manual")
if [[ -n $fresh || ! -e $device/Windows ]]; then
    files=("$image/files")
fi

while IFS= read -r folder; do
    mkdir -p "$device/$folder"
done <"$image/folders.txt"

while IFS= read -r -d '' file; do
    place=$device/${file#"$image/files/"}
    if [[ -n $fresh || ! -e $place ]] || { [[ $file == "$manual"* ]] && ! cmp -s "$file" "$place"; }; then
        install -m 644 -D "$file" "$place"
    fi
done < <(find "${files[@]}" -type f -print0)
