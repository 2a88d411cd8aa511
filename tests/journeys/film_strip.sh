#!/usr/bin/env bash
# A journey by keyboard alone: fills 313 and 332 of a bridge of four girders, takes ten pictures, counts the key strokes.
#   tests/journeys/film_strip.sh STATION OUT_FOLDER
# STATION is the program. A key with its modifiers is one stroke. Judged by the file that is saved: both blocks are those
# of the example. Needs Debian's xvfb openbox xdotool imagemagick.
source "$(dirname "${BASH_SOURCE[0]}")/journey.sh"
needs Xvfb openbox xdotool import
rm -f "$out"/*.png
begin

# rows_of FILE TAG: what stands between the head and the end of a section, but for the automatic row: there the panel says
# where its value comes from.
rows_of() { iconv -f cp932 -t utf-8 "$1" | awk -v tag="[$2]" 'index($0, "[END") { on = 0 } on; index($0, tag) { on = 1 }' | grep -v '自動計算'; }

# The example without the rows of the two blocks; what rules them stays. Bytes as they are.
example=$root/examples/plate4/plate4.sbd
project=$home/bridge.sbd
LC_ALL=C awk 'index($0, "[SEC_V_STIFF]") || index($0, "[SEC_FLG_B_T_MAT]") { on = 1 } index($0, "[END") { on = 0 }
    !(on && /^ *G[0-9]/)' "$example" >"$project"
cp "$root/examples/plate4/plate4.abd" "$home/bridge.abd"
[[ $(rows_of "$project" SEC_V_STIFF | grep -c 'G1') -eq 0 ]] || { echo 'the rows are still there' >&2; exit 1; }

strokes=0
# k KEY[*COUNT]...: strokes, one after the other.
k() {
    local key count
    for key in "$@"; do
        count=1
        [[ $key != *'*'* ]] || { count=${key#*\*} key=${key%\**}; }
        for ((; count > 0; --count)); do
            keys "$key"
            strokes=$((strokes + 1))
        done
        [[ $key != F4 ]] || sleep 0.3 # the list comes up
    done
}
# t TEXT...: each typed, and a Return behind it.
t() {
    local word
    for word in "$@"; do
        text "$word"
        strokes=$((strokes + ${#word}))
        k Return
    done
}
# all TEXT: into all selected cells.
all() {
    text "$1"
    strokes=$((strokes + ${#1}))
    k ctrl+Return
}
shot() { sleep 0.6; picture "$1"; }
start() {
    start_station "$project" "$1" "$2"
    strokes=0
}
# finish BLOCK TAG: saves, ends, and looks whether the block is the example's.
finish() {
    local block=$1 tag=$2 before
    before=$(md5sum <"$project")
    k ctrl+s
    wait_until 10 'a saved project' changed_from "$before"
    end_station
    diff <(rows_of "$example" "$tag" | tr -s ' ') <(rows_of "$project" "$tag" | tr -s ' ') \
        || fail "the rows of $block as in the example"
    echo "$block: $strokes strokes"
}
changed_from() { [[ $(md5sum <"$project") != "$1" ]]; }

start_desktop 1366x900

# --- 313: stiffeners between 21 cross beams ------------------------------------------------------------
start 313 2,3
shot 01-313-empty
t S1 C1 C2 C3 C4 C5 S2 C6 C7 C8 C9 C10 C11 C12 S3 C13 C14 C15 C16 C17
shot 02-313-where-each-begins
k Up ctrl+shift+Up shift+Down ctrl+c ctrl+Up Right ctrl+v # each ends where the next one begins
k ctrl+Down Down
t S4
shot 03-313-where-each-ends
k ctrl+Home Down ctrl+shift+Down
all G1
k Right ctrl+shift+Down
all G4
k Right*3 F4 Down Return ctrl+shift+Down ctrl+d
k Right ctrl+shift+Down
all 130
k Right ctrl+shift+Down
all 9
k Right ctrl+shift+Down
all 2
shot 04-313-columns-filled-at-once
k Left
ten() { text 10; strokes=$((strokes + 2)); k Tab; t 3; } # at the supports; Return leads below the thickness
ten
k Down*4
ten
ten
k Down*6
ten
ten
k Down*4
ten
k ctrl+Home Down End F4 Down Return ctrl+shift+Down ctrl+d
shot 05-313-done
finish 313 SEC_V_STIFF

# --- 332: flanges of 11 sections ------------------------------------------------------------------------
start 332 2,3
shot 06-332-empty
for section in {1..11}; do
    t "SEC$section"
    k ctrl+d Down # the lower flange is of the same section
done
k Up ctrl+shift+Up shift+Right ctrl+r
shot 07-332-sections
k ctrl+Home Down ctrl+shift+Down
all G1
k Right ctrl+shift+Down
all G4
k Right*3 F4 Down Return Down F4 Down Down Return Up shift+Down ctrl+c ctrl+shift+Down ctrl+v
shot 08-332-upper-and-lower-in-turn
k Right ctrl+shift+Down
all SM490Y
k Down Up # lets the selection go
t SM400
k ctrl+d ctrl+Down Up
t SM400
k ctrl+d
k ctrl+Up Down Right # the automatic row has a text there
t 500 560
k Up*2 shift+Down ctrl+c ctrl+shift+Down ctrl+v Right
t 16 19 22 28 25 32 32 40 22 28 25 32 25 32 32 40 25 32 22 28 16 19
shot 09-332-sizes
k Up ctrl+shift+Up shift+Left ctrl+c ctrl+Up Right*2 ctrl+v # the other end is the same
k Left F4 Down*2 Return ctrl+shift+Down ctrl+d
k Down F4 Down Return ctrl+c Down*4 ctrl+v Down*4 ctrl+v Down*4 ctrl+v Down*4 ctrl+v Down*4 ctrl+v
shot 10-332-done
finish 332 SEC_FLG_B_T_MAT
montage "$out"/[01]*.png -tile 2x5 -geometry 683x450+4+4 "$out/film-strip.png" 2>/dev/null || true
echo "done in $SECONDS s, pictures in $out"
