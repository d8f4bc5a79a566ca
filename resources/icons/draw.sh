#!/bin/bash
# Renders the drawings beside this script and packs each into NAME.ico.
#
# NAME.svg is the drawing for 32 pixels and more; NAME-16.svg, drawn on whole
# pixels, is the one for 16.  The .ico files are kept in the repository, so run
# this only after changing a drawing:
#     resources/icons/draw.sh            every icon
#     resources/icons/draw.sh folder     only the named ones
set -euo pipefail

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)

missing=()
command -v rsvg-convert >/dev/null || missing+=(librsvg2-bin)
command -v icotool >/dev/null || missing+=(icoutils)
if ((${#missing[@]})); then
    echo "draw.sh: please install the Debian package(s): ${missing[*]}" >&2
    exit 1
fi

if (($#)); then
    names=("$@")
else
    names=()
    for drawing in "$here"/*.svg; do
        name=$(basename "$drawing" .svg)
        [[ $name == *-16 ]] || names+=("$name")
    done
fi

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

for name in "${names[@]}"; do
    sizes=(16 32)
    [[ $name == program ]] && sizes+=(48 256)
    images=()
    for size in "${sizes[@]}"; do
        drawing=$here/$name.svg
        [[ $size == 16 && -f $here/$name-16.svg ]] && drawing=$here/$name-16.svg
        image=$work/$name-$size.png
        rsvg-convert --width="$size" --height="$size" --output="$image" "$drawing"
        if [[ $size == 256 ]]; then
            images+=(--raw="$image") # Kept as PNG; the smaller ones become bitmaps.
        else
            images+=("$image")
        fi
    done
    # A pixel is masked out exactly when the drawing leaves it transparent.
    icotool --create --bit-depth=32 --alpha-threshold=127 --output="$here/$name.ico" "${images[@]}"
    echo "$name.ico: ${sizes[*]}"
done
