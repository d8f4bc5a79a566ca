# shellcheck shell=bash
# The phone on a web page of this machine: companions/browser shows the screen and says what the page wishes.
# Goes with screen.sh and device.sh; uses $screen, the size.

page=

# run_in_browser: starts the program on a screen of its own, shows it on a page, prints the page's address, and
# does what the page wishes until the program ends. Returns what the program did.
run_in_browser() {
    local wish turn=0
    mkfifo "$work/wishes" && exec 7<>"$work/wishes"
    # Debian's own, which has websockify. Of the screens to come it knows where their number and cookie will be.
    XAUTHORITY=$work/xauthority serve /usr/bin/python3 "$house/companions/browser/server.py" "$work/display" \
        >"$work/wishes" 2>"$work/page.log" 7>&-
    page=${services[-1]}
    await_address
    start_phone
    say "Running; it ends with Menu, Exit or with Ctrl+C here"
    while read -r wish <&7; do
        case $wish in
            home) (folder='\' start_program) 7>&- & ;;
            [0-9]*x[0-9]*) change_screen "$wish" ;;
            "ended $turn "*) return "${wish##* }" ;;
        esac
    done
}

# start_phone: the screen, and the program on it, whose end is told like a wish.
start_phone() {
    start_screen "$screen"
    ((++turn))
    {
        (start_program "$screen") 7>&-
        printf 'ended %s %s\n' "$turn" "$?" >&7
    } &
    started=$!
}

# change_screen WxH: the program ends as if closed, which keeps its settings, and starts on another screen.
change_screen() {
    [[ $1 != "$screen" ]] || return 0
    screen=$1
    say "Starting on the screen $screen"
    rm -f "$work/display"
    close_program
    stop_service "$display_server"
    # The desktop that the program was on goes with its display.
    await_end "$started" || WINEPREFIX=$prefix timeout 20 wineserver -k 2>/dev/null
    wait "$started"
    start_phone
}

# close_program: asks it to close; if it does not within five seconds, ends it.
close_program() {
    local tries
    WINEPREFIX=$prefix timeout 5 wine explorer /desktop=phone taskkill /IM TarvikFileManager.exe \
        >/dev/null 2>&1 </dev/null
    for ((tries = 0; tries < 100; tries++)); do
        process_of "$prefix" TarvikFileManager.exe >/dev/null || return 0
        sleep 0.05
    done
    WINEPREFIX=$prefix timeout 20 wineserver -k 2>/dev/null
}

# await_end PROCESS: whether it ends within five seconds.
await_end() {
    local tries
    for ((tries = 0; tries < 100; tries++)); do
        kill -0 "$1" 2>/dev/null || return 0
        sleep 0.05
    done
    return 1
}

# await_address: the first line of the server's is the page's address; it is kept for who starts a second time.
await_address() {
    local address
    read -r -t 60 address <&7 && [[ $address == http* ]] || {
        tail -n 5 "$work/page.log" >&2
        fail "the page for the web browser did not start" "See the lines above"
    }
    printf '%s\n' "$address" >"$work/address"
    print_address "$address"
}

print_address() {
    printf '\nOpen this in a web browser on this machine (it is fresh each time):\n\n    %s\n\n' "$1"
}

# close_page: lets the page tell that the program has ended, and only then lets the screen go.
close_page() {
    [[ -n $page ]] || return 0
    kill "$page" 2>/dev/null
    wait "$page" 2>/dev/null
    page=
}
