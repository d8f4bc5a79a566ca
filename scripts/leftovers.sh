# shellcheck shell=bash
# What a run leaves behind when it is killed, and how the next one clears it. Each has a private folder in $data,
# named by its process; what it makes elsewhere is noted there, and its services carry the folder's name.

# open_work KIND: makes $work, the private folder of this run; KIND says what it uses: see clear_leftovers.
open_work() {
    work=$data/$1.$$.$(start_of $$)
    mkdir -m 700 "$work" || fail "cannot write to $data" "Is there room"
}

# start_of PROCESS: when it started, which tells it from another of the same number; nothing if it is gone.
start_of() {
    local facts
    { facts=$(<"/proc/$1/stat"); } 2>/dev/null || return
    # After the name, which may hold anything.
    read -ra facts <<<"${facts##*) }"
    printf '%s' "${facts[19]}"
}

# note_link LINK: is made by this run and goes with it.
note_link() {
    printf '%s\0' "$1" >>"$work/links"
}

# close_work FOLDER: ends what a run has started and removes what it has made.
close_work() {
    local process link
    for process in $(processes_with "TARVIK_RUN=$1"); do kill -KILL "$process" 2>/dev/null; done
    [[ ! -d $1/prefix ]] || WINEPREFIX=$1/prefix timeout 20 wineserver -k 2>/dev/null
    if [[ -e $1/links ]]; then
        while IFS= read -r -d '' link; do [[ ! -L $link ]] || rm -f -- "$link"; done <"$1/links"
    fi
    chmod -R u+rwX "$1" 2>/dev/null
    rm -rf "$1"
}

# clear_leftovers KIND: closes for the runs of this kind that have been killed. Those that use the device are
# "run": who has its lock may clear them. Those with a device of their own are "shot", or "phone" when it is a test's.
clear_leftovers() {
    local folder process start
    for folder in "$data/$1".[0-9]*.[0-9]*; do
        IFS=. read -r process start <<<"${folder#"$data/$1."}"
        [[ ! -d $folder || $(start_of "$process") == "$start" ]] || close_work "$folder"
    done
}

# processes_with NAME=VALUE: those that were started with this in their environment.
processes_with() {
    local file
    for file in $(grep -lsxzF "$1" /proc/[0-9]*/environ); do
        file=${file#/proc/}
        printf '%s\n' "${file%/environ}"
    done
}

# environment_of PROCESS NAME: the value it was started with.
environment_of() {
    sed -zn "s/^$2=//p" "/proc/$1/environ" 2>/dev/null | tr -d '\0'
}
