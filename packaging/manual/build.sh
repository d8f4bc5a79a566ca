#!/usr/bin/env bash
# Makes the user manual of the device's image out of the chapters beside this script, and puts the first one,
# the tour, into the README. With --check nothing is written; it fails if something is not current.
set -euo pipefail
# shellcheck source=scripts/lib.sh
source "$(dirname "${BASH_SOURCE[0]}")/../../scripts/lib.sh"

cd "$house/packaging/manual"
readonly name='File Manager_user_manual'
readonly manual="$house/platform/desktop/image/files/Windows/$name.htm" readme=$house/README.md

# body: the chapters. Old browsers know anchors by name only, and give a picture its room only if told its
# width: none is wider than the phone's page.
body() {
    local file width script=()
    for file in "$house/platform/desktop/image/files/Windows/$name"/*.png; do
        # The width stands in the file's header.
        width=$((16#$(od -An -tx1 -j16 -N4 "$file" | tr -d ' \n')))
        ((width <= 216)) || width=216
        script+=(-e "s|<img src=\"$(basename "$file")\"|<img src=\"${name// /%20}/$(basename "$file")\" width=\"$width\"|g")
    done
    cat [0-9]-*.md | lowdown -Thtml --out-no-smarty |
        sed -e 's|<h\([23]\) id="\([^"]*\)">|<h\1><a name="\2"></a>|' -e 's| />|>|g' ${script[@]+"${script[@]}"}
}

# contents: links to the chapters.
contents() {
    sed -n 's|^<h2><a name="\([^"]*\)"></a>\(.*\)</h2>$|<li><a href="#\1">\2</a></li>|p'
}

page() {
    local text
    text=$(body)
    cat <<END
<!DOCTYPE HTML PUBLIC "-//W3C//DTD HTML 4.01//EN" "http://www.w3.org/TR/html4/strict.dtd">
<html lang="en">
<head>
<meta http-equiv="Content-Type" content="text/html; charset=utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<title>Tarvik File Manager: user manual</title>
<style type="text/css">
$(cat style.css)
</style>
</head>
<body>
<h1>Tarvik File Manager</h1>
<p>A file manager for your phone: what it does, and how.</p>
<ul class="contents">
$(contents <<<"$text")
</ul>
$text
</body>
</html>
END
}

# readme_page: the README with the tour between its two marks.
readme_page() {
    awk -v tour=1-tour.md '
        /<!-- end of the tour -->/ { inside = 0 }
        !inside { print }
        /<!-- tour: / { inside = 1; while ((getline line < tour) > 0) print line }
    ' "$readme"
}

need lowdown
if [[ ${1:-} == --check ]]; then
    page | cmp -s - "$manual" || fail "the manual is not current" "Run packaging/manual/build.sh"
    readme_page | cmp -s - "$readme" || fail "the README's tour is not current" "Run packaging/manual/build.sh"
else
    page >"$manual"
    text=$(readme_page)
    printf '%s\n' "$text" >"$readme"
fi
