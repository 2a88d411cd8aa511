# For journeys through a real window: a screen without a monitor, keys and mouse from outside, pictures, and waits that
# end. To be sourced; `out` names the folder for the pictures.

# fail WHAT: tells what was expected and what is there, and ends the journey.
fail() {
    {
        echo "expected: $*"
        echo "on the screen:"
        windows | cut -f 2 | sed 's/^/    /'
    } >&2
    exit 1
}

# start_desktop SIZE: a screen of that size with a window manager, on a display that is free. A key that is held down
# does not repeat: on a busy machine each would.
start_desktop() {
    local number=$out/display
    : >"$number"
    Xvfb -displayfd 3 -screen 0 "$1x24" -nolisten tcp -noreset -r 3>"$number" 2>"$out/Xvfb.log" &
    desktop_pids=($!)
    wait_until 20 'a screen' test -s "$number"
    DISPLAY=:$(<"$number")
    export DISPLAY
    openbox --sm-disable >"$out/openbox.log" 2>&1 &
    desktop_pids+=($!)
    wait_until 20 'a window manager' has_window_manager
}

stop_desktop() {
    [[ ${#desktop_pids[@]} -eq 0 ]] || kill "${desktop_pids[@]}" 2>/dev/null || true
    wait "${desktop_pids[@]}" 2>/dev/null || true
}
desktop_pids=()

has_window_manager() { xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q '#'; }

# wait_until SECONDS WHAT COMMAND...: tries the command until it succeeds.
wait_until() {
    local end=$((${EPOCHREALTIME/[.,]/} + $1 * 1000000)) what=$2
    shift 2
    until "$@"; do
        [[ ${EPOCHREALTIME/[.,]/} -lt $end ]] || fail "$what"
        sleep 0.05
    done
}

# windows: one line a window, its id, a tab, its title.
windows() {
    local id ids
    ids=$(xprop -root _NET_CLIENT_LIST 2>/dev/null | grep -o '0x[0-9a-f]*') || true
    for id in $ids; do
        printf '%s\t%s\n' "$id" "$(title_of "$id")"
    done
}

title_of() { xdotool getwindowname "$1" 2>/dev/null || true; }
active_title() { xdotool getactivewindow getwindowname 2>/dev/null || true; }

# Patterns of titles are the shell's: * stands for any text.
is_active() { [[ $(active_title) == $1 ]]; }
# wait_active PATTERN [SECONDS]: until a window of that title takes the keys.
wait_active() { wait_until "${2:-20}" "a window in front: $1" is_active "$1"; }

# is_shown PATTERN: among the windows there is one of that title.
is_shown() {
    local id title
    while IFS=$'\t' read -r id title; do
        [[ $title != $1 ]] || return 0
    done < <(windows)
    return 1
}

# to_front PATTERN: as a click on the window would, also when the window manager has left no window the keys.
to_front() { wait_until 20 "a window to bring to the front: $1" brings_to_front "$1"; }
brings_to_front() {
    local id title
    is_active "$1" && return
    while IFS=$'\t' read -r id title; do
        [[ $title != $1 ]] || xdotool windowactivate "$((id))" 2>/dev/null || true
    done < <(windows)
    sleep 0.2
    is_active "$1"
}

# out_of_the_way PATTERN: makes an icon of the windows of that title.
out_of_the_way() {
    local id title
    while IFS=$'\t' read -r id title; do
        [[ $title != $1 ]] || xdotool windowminimize "$((id))"
    done < <(windows)
}

count_windows() { windows | grep -c . || true; }
has_windows() { [[ $(count_windows) -eq $1 ]]; }

# keys KEY...: one after the other, to the window in front.
keys() { xdotool key --clearmodifiers --delay 30 "$@"; }
text() { xdotool type --clearmodifiers --delay 30 -- "$1"; }
click() { xdotool mousemove "$1" "$2" click "${3:-1}"; }

# picture NAME: of the whole screen, into the folder of the pictures.
picture() { import -silent -window root "$out/$1.png"; }

# pixels X Y WIDTH HEIGHT: a sum of what is shown there.
pixels() { import -silent -window root -crop "$3x$4+$1+$2" +repage rgb:- | sha1sum; }
# settle [SECONDS]: until the screen has not changed for a moment.
settle() {
    local end=$((${EPOCHREALTIME/[.,]/} + ${1:-10} * 1000000)) before after same=0
    before=$(screen)
    while [[ $same -lt 2 ]]; do
        sleep 0.15
        after=$(screen)
        if [[ $after == "$before" ]]; then same=$((same + 1)); else same=0; fi
        before=$after
        [[ ${EPOCHREALTIME/[.,]/} -lt $end ]] || fail 'a screen that stands still'
    done
}
screen() { import -silent -window root rgb:- | sha1sum; }
