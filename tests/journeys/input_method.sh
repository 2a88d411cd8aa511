#!/usr/bin/env bash
# A journey with a real input method: fcitx5 with anthy types Japanese into cells of the program's real window.
#   tests/journeys/input_method.sh STATION OUT_FOLDER
# STATION is the program; pictures of each step come into OUT_FOLDER. Judged by the file that is saved.
# Needs Debian's fcitx5 fcitx5-anthy fcitx5-frontend-qt6 dbus-daemon xvfb openbox xdotool imagemagick. Without the input
# method the journey says so and ends well.
source "$(dirname "${BASH_SOURCE[0]}")/journey.sh"
needs fcitx5 dbus-run-session Xvfb openbox xdotool import
ls /usr/lib/*/fcitx5/anthy.so /usr/lib/*/qt6/plugins/platforminputcontexts/libfcitx5*.so >/dev/null 2>&1 \
    || skip 'fcitx5 has no anthy, or no plug-in for Qt 6'
on_a_bus
begin

project=$home/橋.sbd
cp "$root/examples/plate4/plate4.sbd" "$project"
cp "$root/examples/plate4/plate4.abd" "$home/橋.abd"
export QT_IM_MODULE=fcitx XMODIFIERS=@im=fcitx
mkdir -p "$home/.config/fcitx5"
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

start() { start_station "$project" "$1" "$2"; }
is_modified() { [[ $(active_title) == *'*]' ]]; }
file_has() { iconv -f cp932 -t utf-8 "$project" | grep -E -- "$1" >/dev/null; }
# save PATTERN WHAT: saves; the file has a line of that pattern.
save() {
    keys ctrl+s
    wait_until 10 "in the file: $2" file_has "$1"
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
end_station

# 3. A cell with a list: the composition begins there too, and the list offers what fits.
start 313 2,5
text ryouhukuban
shot 7-composing-in-a-list-cell
keys Return
rest
keys Return
shot 8-taken-in-a-list-cell
save '^ +G1 +G4 +S1 +C1 +りょうふくばん' 'hiragana in the list cell'
end_station

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
end_station
echo "done in $SECONDS s, pictures in $out"
