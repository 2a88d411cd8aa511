#!/usr/bin/env bash
# A journey with a real input method: fcitx5 with anthy types Japanese into cells of the program's real window.
#   tests/journeys/input_method.sh STATION OUT_FOLDER
# STATION is the program; pictures of each step come into OUT_FOLDER. Judged by the file that is saved.
# Needs Debian's fcitx5 fcitx5-anthy fcitx5-frontend-qt6 dbus-daemon xvfb openbox xdotool imagemagick. Without the input
# method the journey says so and ends well.
set -euo pipefail
export LC_ALL=C.UTF-8
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
root=$(cd "$here/../.." && pwd)
[[ $# -eq 2 ]] || { sed -n '2,6s/^# \?//p' "${BASH_SOURCE[0]}" >&2; exit 2; }
for program in fcitx5 dbus-run-session Xvfb openbox xdotool import; do
    command -v "$program" >/dev/null || { echo "skipped: there is no $program"; exit 0; }
done
ls /usr/lib/*/fcitx5/anthy.so /usr/lib/*/qt6/plugins/platforminputcontexts/libfcitx5*.so >/dev/null 2>&1 \
    || { echo 'skipped: fcitx5 has no anthy, or no plug-in for Qt 6'; exit 0; }
station=$(realpath "$1")
mkdir -p "$2"
out=$(cd "$2" && pwd)
[[ -n ${JOURNEY_BUS:-} ]] || JOURNEY_BUS=1 exec dbus-run-session -- "${BASH_SOURCE[0]}" "$station" "$out"

source "$root/packaging/windows/desktop.sh"
home=$(mktemp -d)
started=()
end_of_journey() {
    local code=$?
    trap - EXIT
    [[ $code -eq 0 || -z ${DISPLAY:-} ]] || picture failed || true
    [[ ${#started[@]} -eq 0 ]] || kill "${started[@]}" 2>/dev/null || true
    stop_desktop
    rm -rf "$home"
    exit $code
}
trap end_of_journey EXIT

project=$home/橋.sbd
cp "$root/examples/plate4/plate4.sbd" "$project"
cp "$root/examples/plate4/plate4.abd" "$home/橋.abd"
unset QT_QPA_PLATFORM
export HOME=$home XDG_RUNTIME_DIR=$home/run QT_IM_MODULE=fcitx XMODIFIERS=@im=fcitx
mkdir -p "$home/.config/fcitx5" "$XDG_RUNTIME_DIR"
chmod 700 "$XDG_RUNTIME_DIR"
cat >"$home/.config/fcitx5/profile" <<'END'
[Groups/0]
Name=Default
Default Layout=us
DefaultIM=anthy

[Groups/0/Items/0]
Name=keyboard-us
Layout=

[Groups/0/Items/1]
Name=anthy
Layout=

[GroupOrder]
0=Default
END
printf '%s\n' '[Behavior]' 'ActiveByDefault=True' >"$home/.config/fcitx5/config"

start_desktop 1366x900
fcitx5 -D >"$out/fcitx5.log" 2>&1 &
started+=($!)
wait_until 20 'the input method on the bus' dbus-send --session --print-reply --dest=org.freedesktop.DBus \
    / org.freedesktop.DBus.GetNameOwner string:org.fcitx.Fcitx5 >/dev/null 2>&1

# start BLOCK CELL: the program with the cursor in the cell.
start() {
    "$station" --block "$1" --cell "$2" "$project" >"$out/station.log" 2>&1 &
    station_pid=$!
    started+=("$station_pid")
    wait_active '*橋.sbd*' 30
    settle
}
is_modified() { [[ $(active_title) == *'*]' ]]; }
is_gone() { ! kill -0 "$1" 2>/dev/null; }
file_has() { iconv -f cp932 -t utf-8 "$project" | grep -E -- "$1" >/dev/null; }
# save PATTERN WHAT: saves; the file has a line of that pattern.
save() {
    keys ctrl+s
    wait_until 10 "in the file: $2" file_has "$1"
}
close() {
    keys ctrl+q
    wait_until 10 'the program has ended' is_gone "$station_pid"
}
# rest: the screen does not stand still, a caret blinks on it.
rest() { sleep 0.8; }
shot() { rest; picture "$1"; }

# 1. The first key in a cell begins a composition; it is converted, taken, and ends in the cell.
start 301 1,2
text hasi
shot 1-composing-from-the-first-key
keys space
shot 2-converted
keys Return
shot 3-taken-into-the-editor
text 2
keys Return Return
shot 4-in-the-cell
save '[橋端箸]２|[橋端箸]2' 'the title, in kanji'

# 2. Esc gives the composition up; the cell keeps its text, also when Enter follows.
keys Up
before=$(md5sum <"$project")
text nihongo
shot 5-composing-over-a-text
keys Escape
shot 6-given-up-the-text-is-there
keys Return
rest
! is_modified || fail 'a composition that was given up leaves the cell as it was'
keys Up
text sakura
keys Escape Escape
rest
! is_modified || fail 'the second Esc gives the edit up'
keys ctrl+s
rest
[[ $(md5sum <"$project") == "$before" ]] || fail 'the file as it was'
close

# 3. A cell with a list: the composition begins there too, and the list offers what fits.
start 313 2,5
text ryouhukuban
shot 7-composing-in-a-list-cell
keys Return
rest
keys Return
shot 8-taken-in-a-list-cell
save '^ +G1 +G4 +S1 +C1 +りょうふくばん' 'hiragana in the list cell'
close

# 4. Words that are in a cell are composed again.
start 313 2,5
keys F2
keys ctrl+a
keys shift+Henkan
shot 9-composed-again
keys Return
rest
keys Return
rest
keys ctrl+s
rest
shot 10-end
! file_has 'りょうふくばん' || fail 'other characters than before'
file_has '^ +G1 +G4 +S1 +C1 +[^ -~ぁ-ん]+ ' || fail 'words that were composed again'
close
echo "done in $SECONDS s, pictures in $out"
