#!/usr/bin/env bash
# Makes the packages, unpacks each into a clean place and starts what is in it, for somebody who has nothing
# yet: the Debian package's command for a user with an empty home, the zip's Start.cmd on a Wine prefix of its
# own. The phone's cab is looked into, and signed. Meanwhile the packages for computers are built in another place,
# too, which must make the same.
set -uo pipefail
# shellcheck source=scripts/lib.sh
source "$(dirname "${BASH_SOURCE[0]}")/../../scripts/lib.sh"
# shellcheck source=scripts/screen.sh
source "$house/scripts/screen.sh"

readonly failures=$house/build/desktop/test-failures
readonly window='Tarvik File Manager'
unset XDG_DATA_HOME
export WINEARCH=win64 WINEDEBUG=-all WINEDLLOVERRIDES='mscoree=;mshtml=;winemenubuilder.exe=d'

work=$(mktemp -d) || fail "cannot make a temporary folder" "Is there room in ${TMPDIR:-/tmp}"
readonly home=$work/home zip_prefix=$work/prefix
readonly data=$home/.local/share/$package
prefix=
broken=0

end_all() {
    local place
    for place in "$zip_prefix" "$data/prefix"; do
        [[ ! -d $place ]] || WINEPREFIX=$place timeout 20 wineserver -k 2>/dev/null
    done
    stop_services
    rm -rf "$work"
}
trap end_all EXIT
trap 'exit 130' INT
trap 'exit 143' TERM HUP

# expect WHAT COMMAND...: the command must succeed; when it does not, the test goes on and keeps a picture.
expect() {
    local what=$1
    shift
    "$@" && return
    printf 'Failed: %s\n' "$what" >&2
    broken=$((broken + 1))
    mkdir -p "$failures"
    [[ -z ${DISPLAY:-} ]] || import -silent -window root "$failures/package.$broken.png"
    return 1
}

# eventually COMMAND...: whether it succeeds within twenty seconds.
eventually() {
    local tries
    for ((tries = 0; tries < 400; tries++)); do
        "$@" && return
        sleep 0.05
    done
    return 1
}

# ended PROCESS: whether it is gone.
ended() {
    ! kill -0 "$1" 2>/dev/null
}

# holds TEXT PART: whether the part is in the text.
holds() {
    [[ $1 == *"$2"* ]]
}

# picture_differs SUM: whether the screen looks different.
picture_differs() {
    [[ $(cksum <"$work/Xvfb_screen0") != "$1" ]]
}

# extracts DEVICE: whether the program, showing \My Documents, gets the sample archive out by its archiver:
# Menu, File, Open, Extract to here.
extracts() {
    settle 400
    play text:hol F10 1 1 3
    eventually test -d "$1/My Documents/Holiday"
}

# --- The Debian package ---

check_deb() {
    local place=$work/debian command first before option
    expect "the package is unpacked" dpkg-deb -x "$1" "$place" || return
    expect "the package says its version" holds "$(dpkg-deb -f "$1" Version)" "$product-"
    expect "everything belongs to root" holds "$(dpkg-deb -c "$1" | awk '{ print $2 }' | sort -u)" root/root
    expect "what it needs is named" holds "$(dpkg-deb -f "$1" Depends)" wine64
    expect "the sums are right" md5sum --quiet -c --strict \
        <(dpkg-deb --ctrl-tarfile "$1" | tar -xO ./md5sums | sed "s|  |  $place/|")

    command=$place/usr/bin/$package
    expect "the version is told" test "$("$command" --version)" = "$window $product"
    expect "its own name is told" holds "$("$command" --help)" "  $package [--screen"
    for option in $("$command" --help | grep -o -- '--[a-z-]*[a-z]' | sort -u); do
        expect "the man page tells of $option" \
            holds "$(zcat "$place/usr/share/man/man1/$package.1.gz" | tr -d '\\')" "$option"
    done

    prefix=$data/prefix
    mkdir "$home"
    HOME=$home serve "$command" '\My Documents' 2>"$work/command.log"
    first=${services[-1]}
    expect "the command shows the window" await_window "$window" "$first" || { cat "$work/command.log"; return; }
    expect "the device is filled" test -f "$data/device/Windows/File Manager_user_manual.htm"
    expect "the home is its storage card" test "$data/device/Storage Card" -ef "$home"
    expect "the archiver works" extracts "$data/device"

    before=$(cksum <"$work/Xvfb_screen0")
    expect "a second start is taken" env HOME="$home" "$command" '\Windows' 2>"$work/second.log"
    expect "the device that runs takes it" holds "$(<"$work/second.log")" 'running already'
    expect "it shows the folder" eventually picture_differs "$before"
    HOME=$home serve "$command" --from-menu --screen 320x240
    expect "the menu entry tells of failures in a window" await_window "$window failed" "${services[-1]}"
    stop_service "${services[-1]}"
    settle 400
    play ctrl+q
    expect "the command ends with the program" eventually ended "$first"
}

# --- The zip ---

# boot_windows: a Wine prefix as it comes.
boot_windows() {
    env -u DISPLAY HOME="$work" WINEPREFIX="$zip_prefix" timeout 120 wineboot --init >/dev/null 2>&1 </dev/null
}

# on_windows FILE: how Windows calls a file of this machine.
on_windows() {
    printf 'Z:%s' "${1//\//\\}"
}

check_zip() {
    local place=$work/unpacked top device started
    expect "the zip is unpacked" unzip -q "$1" -d "$place" || return
    top=$place/$(basename "$1" .zip)
    device=$top/device
    expect "its license is there" test -s "$top/LICENSE.txt"
    expect "those of the libraries are there" test -s "$device/Program Files/$window/Licenses of libraries.txt"
    expect "the manual is there" test -s "$device/Windows/File Manager_user_manual.htm"
    expect "the texts are filled in" test -z "$(grep -l @ "$top"/*.txt)"

    prefix=$zip_prefix
    # Our subst comes before Wine's, which does nothing.
    HOME=$work WINEPREFIX=$zip_prefix WINEPATH=$(on_windows "$house/build/desktop/tests") \
        serve wine explorer /desktop=phone,240x320 cmd /c "$(on_windows "$top/Start.cmd")" '\My Documents' \
        >/dev/null 2>&1 </dev/null
    started=${services[-1]}
    expect "Start.cmd shows the window" await_window "$window" "$started" || return
    expect "the archiver works" extracts "$device"
    play ctrl+q
    expect "the program ends" eventually ended "$started"
    expect "its drive letter is given back" test ! -e "$zip_prefix/dosdevices/t:"
}

# --- The cab ---

check_cab() {
    expect "the phone gets what it should" /usr/bin/python3 -B "$house/tests/package/cab_check.py" "$1"
}

# check_signed_cab: the cab of a builder with a certificate, which here has just been made.
check_signed_cab() {
    local signed=$work/signed
    export TARVIK_SIGN_PASSWORD=secret
    openssl req -x509 -newkey rsa:2048 -nodes -days 2 -subj '/CN=A builder' -addext extendedKeyUsage=codeSigning \
        -keyout "$work/key.pem" -out "$work/certificate.pem" 2>/dev/null
    openssl pkcs12 -export -inkey "$work/key.pem" -in "$work/certificate.pem" -out "$work/builder.p12" \
        -passout env:TARVIK_SIGN_PASSWORD
    expect "a signed cab is made" "$house/package" --sign "$work/builder.p12" --only cab || return
    cabextract --quiet --directory "$signed" "$packages/TarvikFileManager.cab"
    expect "the cab is signed" verified "$packages/TarvikFileManager.cab"
    expect "the program in it is signed" verified "$(grep -la '^MZ' "$signed"/*)"
    expect "a wrong password is refused" refuses env TARVIK_SIGN_PASSWORD=wrong "$house/package" \
        --sign "$work/builder.p12" --only cab
}

# verified FILE: whether it bears the builder's signature.
verified() {
    osslsigncode verify -CAfile "$work/certificate.pem" -in "$1" | grep -q '^Signature verification: ok'
}

# refuses COMMAND...: whether it fails.
refuses() {
    ! "$@" 2>/dev/null
}

# --- Built twice ---

# build_again: builds and packs a copy of the sources that lies elsewhere.
build_again() {
    mkdir -p "$work/another place/build"
    tar -C "$house" -c --exclude=./build --exclude=./.git . | tar -C "$work/another place" -x
    ln -s "$house/build/sources" "$work/another place/build/sources"
    # shellcheck disable=SC2016  # its own $0
    serve nice bash -c '"$0" --only zip && "$0" --only deb' "$work/another place/package" \
        >"$work/again.log" 2>&1
    again=${services[-1]}
}

check_again() {
    local file
    wait "$again"
    expect "the packages are made in another place" test $? = 0 || tail -n 20 "$work/again.log"
    for file in "$packages"/*.{zip,deb}; do
        expect "$(basename "$file") is the same when it is built in another place" \
            cmp "$file" "$work/another place/build/packages/$(basename "$file")"
    done
}

# --- Go ---

need "${wine_tools[@]}" "${screen_tools[@]}" "${cab_test_tools[@]}" dpkg-deb unzip xdotool
boot_windows &
booting=$!
product=$(product_version)
packages=$house/build/packages
rm -rf "$packages"
# Both are of this time, whenever they are built.
SOURCE_DATE_EPOCH=$(date +%s)
export SOURCE_DATE_EPOCH
build_again
"$house/package" || exit
start_screen 240x320
check_cab "$packages/TarvikFileManager.cab"
check_signed_cab
check_deb "$packages/${package}_$product-1_amd64.deb"
wait "$booting"
check_zip "$packages/$package-$product-windows.zip"
check_again
((broken == 0)) || fail "$broken failed" "Pictures of the screen: $failures"
say "All packages work"
