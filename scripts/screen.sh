# shellcheck shell=bash
# A screen of our own: a virtual X display of a phone's size, keys and pictures.
# Uses $work, a private temporary folder, $services, the processes to end, and $prefix, the device's.

services=()

# serve COMMAND...: starts a service in a process group of its own and remembers to end it; when we cannot, the
# next start knows it by our folder's name. It does not hold the device's lock (9).
serve() {
    TARVIK_RUN=$work setsid "$@" 9>&- &
    services+=($!)
}

# stop_service GROUP: ends one of them.
stop_service() {
    local group others=()
    for group in "${services[@]}"; do [[ $group == "$1" ]] || others+=("$group"); done
    services=(${others[@]+"${others[@]}"})
    kill -- "-$1" 2>/dev/null
    wait "$1" 2>/dev/null
}

stop_services() {
    local group
    for group in "${services[@]}"; do kill -- "-$group" 2>/dev/null; done
    for group in "${services[@]}"; do wait "$group" 2>/dev/null; done
    services=()
}

# display_opens: whether the display of the environment can be used.
display_opens() {
    [[ -n ${DISPLAY:-} ]] && timeout 5 xdpyinfo >/dev/null 2>&1
}

# start_screen WxH: an X display that only this user's cookie opens; sets DISPLAY, XAUTHORITY and
# display_server.
start_screen() {
    local cookie number tries
    cookie=$(mcookie)
    export XAUTHORITY=$work/xauthority
    xauth -q -f "$XAUTHORITY" add :0 . "$cookie" 2>/dev/null

    # The screen's memory is a file: looking whether it changed needs no X call.
    serve Xvfb -displayfd 3 -screen 0 "${1}x24" -nolisten tcp -noreset -auth "$XAUTHORITY" -fbdir "$work" \
        3>"$work/display" >"$work/xvfb.log" 2>&1
    display_server=${services[-1]}
    for ((tries = 0; tries < 200; tries++)); do
        [[ -s $work/display ]] && break
        kill -0 "$display_server" 2>/dev/null || break
        sleep 0.05
    done
    number=$(<"$work/display")
    [[ -n $number ]] || {
        tail -n 5 "$work/xvfb.log" >&2
        fail "the virtual screen did not start" "See the lines above; is /tmp writable"
    }
    export DISPLAY=:$number
    xauth -q -f "$XAUTHORITY" add "$DISPLAY" . "$cookie"
}

# settle MS: waits until the screen has not changed for that long and nothing is at work on it, at most thirty
# seconds. On a busy machine a program that has yet to paint shows as ready to run.
settle() {
    local now last='' begun=${EPOCHREALTIME/./} since=${EPOCHREALTIME/./}
    while ((${EPOCHREALTIME/./} - begun < 30000000)); do
        now=$(cksum <"$work/Xvfb_screen0")
        if [[ $now != "$last" ]] || at_work; then
            last=$now since=${EPOCHREALTIME/./}
        elif ((${EPOCHREALTIME/./} - since >= $1 * 1000)); then
            return
        fi
        sleep 0.05
    done
}

# at_work: whether a thread of the screen or of the programs of $prefix runs, or would if it got a processor.
at_work() {
    local process threads=()
    for process in "${services[@]}"; do threads+=("/proc/$process/task"/*/status); done
    while IFS= read -r process; do
        threads+=("${process%/environ}/task"/*/status)
    done < <(grep -lsxzF "WINEPREFIX=$prefix" /proc/[0-9]*/environ)
    grep -qsE '^State:[[:space:]]+[RD]' "${threads[@]}"
}

# await_window NAME PID: waits until a window of that name shows, as long as the process lives.
await_window() {
    local tries
    for ((tries = 0; tries < 600; tries++)); do
        shows_window "$1" && return 0
        kill -0 "$2" 2>/dev/null || return 1
        sleep 0.05
    done
    return 1
}

# shows_window NAME: whether a window of that name shows.
shows_window() {
    timeout 5 xwininfo -name "$1" 2>/dev/null | grep -q IsViewable
}

# play STEP...: each step is a key as xdotool names it (F1, Down, ctrl+l) or one of text:WORDS, click:X,Y,
# hold:X,Y and wait:MS. The next one follows when the screen has come to rest.
play() {
    local step place
    for step; do
        case $step in
            text:*) xdotool type -- "${step#text:}" ;;
            click:* | hold:*)
                place=${step#*:}
                xdotool mousemove "${place%,*}" "${place#*,}" mousedown 1
                [[ $step == click:* ]] || sleep 1
                xdotool mouseup 1
                ;;
            wait:*) sleep "$(printf '%d.%03d' $((${step#wait:} / 1000)) $((${step#wait:} % 1000)))" ;;
            *) xdotool key -- "$step" ;;
        esac
        settle 200
    done
}

# check_steps STEP...: refuses what play could not carry out.
check_steps() {
    local step
    for step; do
        case $step in
            text:?*) ;;
            click:* | hold:*) [[ $step =~ :[0-9]+,[0-9]+$ ]] || fail "bad place '$step'" "Write it as click:X,Y or hold:X,Y" ;;
            wait:*) [[ $step =~ ^wait:(0|[1-9][0-9]{0,4})$ ]] || fail "bad pause '$step'" "Write it as wait:MS, at most 99999" ;;
            *) [[ $step =~ ^[A-Za-z0-9_]+(\+[A-Za-z0-9_]+)*$ ]] || fail "bad key '$step'" \
                "Use xdotool's names (F1, Return, ctrl+l), text:WORDS, click:X,Y, hold:X,Y or wait:MS" ;;
        esac
    done
}

# check_keys STEP...: refuses keys that the screen does not know.
check_keys() {
    local step unknown
    for step; do
        [[ $step != *:* ]] || continue
        unknown=$(xdotool key -- "$step" 2>&1 | sed -n "s/.*No such key name '\(.*\)'.*/\1/p" | head -n 1)
        [[ -z $unknown ]] || fail "there is no key '$unknown'" "Use xdotool's names: F1, Return, BackSpace, ctrl+l"
    done
}

# save_picture FILE: the whole screen as a PNG file.
save_picture() {
    # Its name is no pattern.
    import -silent -window root "png24:$work/picture" && mv -f -- "$work/picture" "$1" || fail "cannot write the picture $1" "Is there room, and may you write there"
}
