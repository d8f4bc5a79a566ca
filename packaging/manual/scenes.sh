# shellcheck shell=bash
# What the pictures of the manual show: scripts/screenshots plays each scene on a fresh device.
# The screen is $screen wide and high; `on` changes it.

scenes=(start menus views panes address goto naming context copy delete search properties drag shortcut
    parameters program archives options browser small wide)

# on WxH: the scenes that follow are on a screen of that size.
on() {
    [[ $screen != "$1" ]] || return 0
    end
    stop_services
    rm -f "$work/display"
    screen=$1
    start_screen "$screen"
}

# --- The sample files ---

# lay_samples DEVICE CARD
lay_samples() {
    local device=$1 card=$2
    mkdir -p "$card/Music" "$card/Photos" "$card/Notes" "$card/Work"
    head -c 2411520 /dev/zero >"$card/Music/Morning.mp3"
    head -c 3187712 /dev/zero >"$card/Music/Evening.mp3"
    cp "$device/My Documents/Pictures/Hills.png" "$card/Photos/Hills.png"
    cp "$device/My Documents/Notes/Ideas.txt" "$card/Notes/Ideas.txt"
    printf 'An older welcome\n' >"$card/Welcome.txt"
    printf 'Quarter,Sales\nFirst,1200\nSecond,1450\n' >"$card/Work/Sales.csv"
    printf '31#"\\Storage Card\\Music"\r\n' >"$device/Windows/Favorites/Music.lnk"
    printf '28#"\\My Documents\\Welcome.txt"\r\n' >"$device/My Documents/Notes/Shortcut to Welcome.lnk"
}

# date_samples DEVICE CARD
date_samples() {
    touch -d '2007-05-02 18:12' "$1/My Documents/Welcome.txt" "$2/Work/Sales.csv"
    touch -d '2007-04-21 12:05' "$1/My Documents/Holiday.zip" "$2/Photos/Hills.png"
    touch -d '2006-12-24 16:40' "$2/Welcome.txt" "$1/My Documents/Notes/Ideas.txt"
}

# --- The scenes ---

scene_start() {
    on 240x320
    begin
    snap start
}

scene_menus() {
    on 240x320
    begin '\My Documents'
    play text:Wel F10
    snap menu
    play Down Right
    snap menu-file
    play Left Down Right
    snap menu-edit
    play Left Down Right
    snap menu-send-to
    play Left Down Right
    snap menu-view
    play Right
    snap menu-view-style
    play Left Down Right
    snap menu-arrange
    play Left Left Down Right
    snap menu-toolbar
    play Left Down Right
    snap menu-go-to
    play Left Down Right
    snap menu-tools
}

scene_views() {
    local view
    on 240x320
    begin '\My Documents'
    play text:Wel
    for view in large list small detailed detailed-line; do
        snap "view-$view"
        play ctrl+l
    done
}

scene_panes() {
    on 240x320
    begin '"ShowFolder"=dword:00000001'
    snap tree
    begin '"ShowFolder"=dword:00000001' '"ViewSide"=dword:00000001' '"TreeViewWidth"=dword:00000070' '\My Documents'
    snap tree-side
}

scene_address() {
    on 240x320
    begin '[Rebar]' '"CmdBands"=hex:00,00,00,00,01,00,00,00' '[Recent]' '"Recent1"="\\Storage Card\\Music"' \
        '"Recent2"="\\My Documents"' '"Recent3"="\\Windows"' '\My Documents'
    play F6
    snap address
    play alt+Down
    snap address-list
}

scene_goto() {
    on 240x320
    begin '\Storage Card\Music'
    play ctrl+u F10 Down Return Return
    snap user-path
    play F10
    snap user-path-menu
    play Escape F1 F10 Down Down Down Down Down Down Right
    snap go-to
    play Right
    snap favorites
}

scene_naming() {
    on 240x320
    begin '\My Documents\Notes'
    play text:Bud F2
    snap rename
    begin '\My Documents'
    play ctrl+n
    snap new-folder
}

scene_context() {
    on 240x320
    begin '\My Documents'
    play text:No ctrl+m
    snap context-folder
    begin '\My Documents'
    play hold:200,240
    snap context-empty
    begin '\My Documents'
    play ctrl+a ctrl+m
    snap context-many
    begin '\My Documents'
    play ctrl+l text:Ho ctrl+m
    snap context-zip
}

scene_copy() {
    on 240x320
    begin '\My Documents'
    play ctrl+l text:Wel ctrl+o
    snap choose-folder
    play text:St
    snap choose-folder-card
    play F1
    snap replace-file
    play F10
    snap replace-file-menu
    begin '\My Documents'
    play ctrl+l text:No ctrl+o text:St F1
    snap replace-folder
}

scene_delete() {
    on 240x320
    begin '\My Documents'
    play ctrl+l text:Wel Delete
    snap delete
}

scene_search() {
    on 240x320
    begin
    play ctrl+f text:.txt Tab Tab Tab Tab Tab space Tab Right Right Right Right Tab Right 5 Right 1 Right 2 0 0 6 Tab
    snap search
    play F1
    snap search-results
}

scene_properties() {
    on 240x320
    begin '\My Documents'
    play ctrl+l text:Wel ctrl+p
    snap properties
    begin '\My Documents'
    play ctrl+l text:No ctrl+p F10
    snap properties-menu
    play Down Down Return
    snap contents
    begin '\My Documents\Notes'
    play ctrl+l text:Shortcut ctrl+p F10 Down Return
    snap target
}

scene_drag() {
    on 240x320
    begin '"ContextMenu"=dword:00000001' '\My Documents'
    drag 105,180 105,50
    snap drop
}

scene_shortcut() {
    on 240x320
    begin '\My Documents'
    play ctrl+l ctrl+l text:Wel F10 Down Right Down Down Return
    snap shortcut
}

scene_parameters() {
    on 240x320
    begin '\My Documents'
    play ctrl+l text:Wel ctrl+b
    snap parameters
}

scene_program() {
    on 240x320
    begin '\My Documents'
    play ctrl+l text:Ho ctrl+m Down Right
    snap open-zip
    play Up Return
    snap choose-program
}

scene_archives() {
    on 240x320
    begin '\My Documents'
    play ctrl+l text:No F10 Down Down Down Right Down Down Return
    snap zip
    begin '\My Documents'
    play ctrl+l text:Ho ctrl+m Down Right Return
    snap extract-to
    # One that takes long enough for its picture.
    (cd "$fresh/seed/Temp" && head -c 48M /dev/zero | split -a 5 -b 4k -d - 'Picture ' && zip -qm1 Journey.zip Picture*)
    begin '\Temp'
    play ctrl+l text:Jo ctrl+m Down Right Return F1
    sleep 0.6
    snap extracting
    end
    rm "$fresh/seed/Temp/Journey.zip"
}

scene_options() {
    local page number=0
    on 240x320
    begin '\My Documents'
    play F4
    snap options
    play F10
    snap options-menu
    play Escape
    for page in icons font controls compression system-path about; do
        play F10 $((++number))
        snap "options-$page"
        play F1
    done
}

scene_browser() {
    on 240x320
    at_ten begin '\My Documents'
    snap_page browser
}

scene_small() {
    on 176x220
    begin '"ShowFolder"=dword:00000001' '"ViewSide"=dword:00000001' '"TreeViewWidth"=dword:00000056' '\My Documents'
    snap small-tree
}

scene_wide() {
    on 320x240
    begin '"ShowFolder"=dword:00000001' '"ViewSide"=dword:00000001' '"TreeViewWidth"=dword:00000070' '\My Documents'
    snap wide-tree
}

# put_together: the README's pictures.
put_together() {
    montage screens 3 tree view-detailed context-folder
    montage views 5 view-large view-list view-small view-detailed view-detailed-line
    montage layouts 3 tree-side wide-tree small-tree
    montage menus 4 menu-file menu-edit menu-send-to menu-view menu-view-style menu-toolbar menu-go-to menu-tools
}
