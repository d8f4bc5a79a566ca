# shellcheck shell=bash
# A screen of our own: a virtual X display of a phone's size, its way into a web browser, keys and pictures.
# Uses $work, a private temporary folder, $services, the processes to end, and $prefix, the device's.

services=()

# serve COMMAND...: starts a service in a process group of its own and remembers to end it. It does not hold
# the device's lock (9).
serve() {
    setsid "$@" 9>&- &
    services+=($!)
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

# start_screen WxH: an X display that only this user's cookie opens; sets DISPLAY and XAUTHORITY.
start_screen() {
    local cookie number tries
    cookie=$(mcookie)
    export XAUTHORITY=$work/xauthority
    xauth -q -f "$XAUTHORITY" add :0 . "$cookie" 2>/dev/null

    # The screen's memory is a file: looking whether it changed needs no X call.
    serve Xvfb -displayfd 3 -screen 0 "${1}x24" -nolisten tcp -noreset -auth "$XAUTHORITY" -fbdir "$work" \
        3>"$work/display" >"$work/xvfb.log" 2>&1
    for ((tries = 0; tries < 200; tries++)); do
        [[ -s $work/display ]] && break
        kill -0 "${services[-1]}" 2>/dev/null || break
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

# serve_screen: gives the screen to a web browser on this machine; prints the address.
serve_screen() {
    local password port vnc_port tries
    # Eight characters are all that VNC looks at.
    password=$(mcookie | cut -c1-8)
    (umask 077 && printf '%s\n' "$password" >"$work/password")

    serve x11vnc -norc -display "$DISPLAY" -auth "$XAUTHORITY" -passwdfile "rm:$work/password" \
        -listen 127.0.0.1 -noipv6 -rfbportv6 -1 -autoport 5900 -forever -shared -quiet -wait 20 >"$work/vnc" 2>"$work/vnc.log"
    for ((tries = 0; tries < 200; tries++)); do
        vnc_port=$(sed -n 's/^PORT=//p' "$work/vnc")
        [[ -n $vnc_port ]] && break
        sleep 0.05
    done
    [[ -n $vnc_port ]] || {
        tail -n 5 "$work/vnc.log" >&2
        fail "x11vnc did not start" "See the lines above"
    }

    for ((port = 6080; port < 6180; port++)); do
        listens "$port" && continue
        serve websockify --web=/usr/share/novnc "127.0.0.1:$port" "127.0.0.1:$vnc_port" >"$work/web.log" 2>&1
        for ((tries = 0; tries < 100; tries++)); do
            kill -0 "${services[-1]}" 2>/dev/null || continue 2
            listens "$port" && break 2
            sleep 0.05
        done
    done
    ((port < 6180)) || fail "no free port between 6080 and 6179 on 127.0.0.1" "Close what holds them"

    # The part behind '#' stays in the browser.
    printf '\nOpen this in a web browser on this machine (it is fresh each time):\n\n    %s\n\n' \
        "http://127.0.0.1:$port/vnc.html?autoconnect=1&resize=scale#password=$password"
}

# listens PORT: whether something answers there on loopback.
listens() {
    (exec 3<>"/dev/tcp/127.0.0.1/$1") 2>/dev/null
}

# settle MS: waits until the screen has not changed for that long and nothing is at work on it, at most thirty
# seconds. On a busy machine a program that has yet to paint shows as ready to run.
settle() {
    local last='' now quiet=0 tries
    for ((tries = 0; tries < 600 && quiet < $1; tries++)); do
        now=$(cksum <"$work/Xvfb_screen0")
        if [[ $now == "$last" ]] && ! at_work; then quiet=$((quiet + 50)); else quiet=0; fi
        last=$now
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
        xdotool search --onlyvisible --name "^$1\$" >/dev/null 2>&1 && return 0
        kill -0 "$2" 2>/dev/null || return 1
        sleep 0.05
    done
    return 1
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

# save_picture FILE: the whole screen as a PNG file.
save_picture() {
    import -silent -window root "png24:$1" || fail "cannot write the picture $1" "Is there room, and may you write there"
}
