#!/usr/bin/env bash
# A journey through the Windows program's real window under Wine, by keys and mouse from outside.
#   packaging/windows/journey.sh [--quick] BUILD_FOLDER OUT_FOLDER
# BUILD_FOLDER is a build of the preset `windows`; pictures of each step come into OUT_FOLDER.
# --quick leaves out what takes long or goes wrong rarely.
set -euo pipefail
export LC_ALL=C.UTF-8 # titles and names are Japanese
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
root=$(cd "$here/../.." && pwd)
kit=$root/build/windows-kit
quick=false
if [[ ${1:-} == --quick ]]; then
    quick=true
    shift
fi
[[ $# -eq 2 ]] || { sed -n '2,5s/^# \?//p' "${BASH_SOURCE[0]}" >&2; exit 2; }
build=$(cd "$1" && pwd)
mkdir -p "$2"
out=$(cd "$2" && pwd)
rm -f "$out"/*.png

source "$here/desktop.sh"
source "$here/journey_steps.sh"

app="$out/道路橋 設計/KELD section"
projects="$out/物件 一覧"
base="$projects/三径間 鈑桁橋"
project=$base.sbd
other="$projects/単純桁.sbd"

trap end_of_journey EXIT
take "a Wine prefix of this journey's own" make_prefix
take 'the programs, in a folder with blanks and Japanese' stage
start_desktop 1280x960

take 'a project on the command line' start_with_project
take 'typing, undo, copy and paste' edit_cells
take 'saving' save_project
take 'filling by key' fill_by_key
$quick || take 'other programs may read, not write' keep_others_out
take 'an engine from the menu' run_engine
$quick || take 'an engine with half a quoted path' run_cross
take 'a second start' start_again
take 'a start while the first one ends' start_while_closing
$quick || take 'a start while it closes' start_while_closing_at_once
take 'a project that another program holds' open_held
if ! $quick; then
    take 'a file that may not be written' save_read_only
    take 'a path of more than 260 characters' use_long_path
    take 'help page, search, preview, pictures' use_help_pane
fi
take 'a sign-out' sign_out
take 'closing' close_all
echo "done in $SECONDS s, pictures in $out"
