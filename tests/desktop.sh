#!/bin/sh
# Drives a window and a terminal with keys as a person does. What stands in the window is compared with pictures of
# `osdmenu shot`; what stands in the terminal is read.
# usage: desktop.sh OSDMENU MENU_DIRECTORY window|terminal
set -eu
osdmenu=$1 menu=$2 place=$(mktemp -d) server= session=
trap '{ kill $session $server; tmux -S tmux kill-server; wait; } 2>/dev/null || true; rm -rf "$place"' EXIT
cd "$place"
export XDG_STATE_HOME="$place/state" LC_ALL=C.UTF-8
unset DISPLAY WAYLAND_DISPLAY TMUX || true

until_true() { # COMMAND...
    for try in $(seq 600); do
        ! "$@" || return 0
        sleep 0.1
    done
    echo "never true: $*"
    exit 1
}

mkdir m
sed '/^  - de$/,/^  - ar$/d; s/burst: 2/burst: 1/' "$menu/menu.yaml" >m/menu.yaml
cp "$menu/osd_menu.json" m
"$osdmenu" build m/menu.yaml -o sample >built

window() {
    picture_of() { import-im6 -window "$window" all.png && convert-im6 all.png -crop "$1" +repage "$2"; }
    difference() { compare-im6 -metric AE "$1" "$2" null: 2>&1; } # pixels
    shows() { picture_of 880x580+0+0 page.png && [ "$(difference page.png "$1")" = 0 ]; }
    is_open() { window=$(xdotool search --onlyvisible --name '^osdmenu$' 2>/dev/null); }
    "$osdmenu" shot sample -o first.png
    "$osdmenu" shot sample --keys 'ok ok down right' -o second.png
    "$osdmenu" shot sample --keys 'ok ok down right' --helpline -o help.png
    Xvfb -displayfd 9 -screen 0 2400x1300x24 -nolisten tcp 9>display 2>xvfb.log &
    server=$!
    until_true test -s display
    export DISPLAY=":$(cat display)"
    "$osdmenu" run sample --scale 1 >told 2>&1 &
    session=$!
    until_true is_open
    until_true shows first.png
    picture_of 420x580+880+0 panel.png
    xdotool windowfocus --sync "$window" key Return key Return key Down key Right
    until_true shows second.png
    picture_of 420x580+880+0 panel2.png
    cmp -s panel.png panel2.png && exit 1
    xdotool key h
    until_true shows help.png
    xdotool key h key b
    shows_bubble() { ! shows second.png && [ "$(difference page.png second.png)" -lt 20000 ]; }
    until_true shows_bubble
    until_true shows second.png # the bubble goes by itself
    xdotool windowsize --sync "$window" 1000 600
    is_anew() { tr '\0' ' ' </proc/$session/cmdline | grep -q -e '--resume=1000x600/1 '; }
    has_size() { is_open && xdotool getwindowgeometry "$window" | grep -q 1000x600; }
    touch sample/menu.json
    until_true is_anew
    until_true has_size
    xdotool windowfocus --sync "$window"
    xdotool key Escape
    wait $session
    [ ! -s told ] && grep -q '"exposure_compensation":.1' state/osdmenu/sample-*/settings.json
}

terminal() {
    tmux_do() { tmux -S tmux -f /dev/null "$@"; }
    says() { tmux_do capture-pane -p -t 0 | grep -q -e "$1"; }
    press() { tmux_do send-keys -t 0 "$@"; }
    draw() { tmux_do capture-pane -e -N -p -t 0 | head -28 >"$1"; } # the page without what stands below
    echo "stty -g >before; TERM=tmux-256color COLORTERM=truecolor '$osdmenu' run sample; echo left with \$?
        stty -g >after; exec sleep 1000" >session
    tmux_do -u new-session -d -x 90 -y 40 "sh session"
    until_true says '> Camera'
    press Enter Enter
    until_true says '> Mode  *Automatic'
    draw first
    press Down Right
    until_true says '> Compensation  *1'
    draw second
    cmp -s first second && exit 1
    press Left Up
    until_true says '> Mode  *Automatic'
    draw third
    cmp first third
    head -1 first | grep -q '48;2;16;25;41m' # the menu's #101929
    tmux_do resize-window -x 140 -y 45
    until_true says '  SET exposure_compensation 0'
    press '?'
    until_true says 'Backspace  *one level up'
    press BSpace
    until_true says ' exposure$'
    press q
    until_true test -s after
    says 'left with 0'
    cmp before after
    for graphics in "sixel:P[0-9;]*q" kitty:_G; do
        echo q | TERM=xterm script -qec "'$osdmenu' run sample --graphics ${graphics%:*}" typescript >/dev/null
        grep -q "$(printf '\033')${graphics#*:}" typescript
    done
}

"$3"
