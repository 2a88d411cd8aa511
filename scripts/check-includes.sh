#!/usr/bin/env bash
# Fails where a folder includes what stands above it in docs/architecture.md, or where a folder without Qt includes Qt.
#   scripts/check-includes.sh [root of the tree]
set -euo pipefail
root=${1:-$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)}
cd "$root"

# The direct arrows, each folder after those it points to. What stands behind an arrow may be included too.
declare -A arrows=(
    [commands]=""
    [project]="commands"
    [sbdfile]="project"
    [sheets]="sbdfile"
    [compare]="sbdfile"
    [results]="project sheets"
    [drawing]="results"
    [panelmodel]="project"
    [check]="compare panelmodel drawing"
    [book]="compare panelmodel sheets"
    [page]="project"
    [search]="panelmodel page"
    [document]="check results"
    [grid]="commands"
    [panels]="sheets grid panelmodel search document"
    [upperview]="document page drawing book"
    [frame]="panels upperview"
    [app]="frame"
    [tools]="book compare results panelmodel check search"
    [sbdpage]="upperview panels"
)
order="commands project sbdfile sheets compare results drawing panelmodel check book page search document grid panels upperview frame app tools sbdpage"
without_qt="commands project sbdfile sheets compare results drawing panelmodel check book page search tools"

declare -A reach
for folder in $order; do
    reach[$folder]=" $folder "
    for target in ${arrows[$folder]}; do
        reach[$folder]+="${reach[$target]}"
    done
done

is_in() { [[ " $2 " == *" $1 "* ]]; }

bad=0
complain() {
    echo "$1" >&2
    bad=1
}

# lines_of FOLDER FILE...: judges every #include of the files by the rules of FOLDER.
lines_of() {
    local folder=$1 file number line name target
    shift
    while IFS=: read -r file number line; do
        if [[ $line =~ ^[[:space:]]*#[[:space:]]*include[[:space:]]*\"([^\"]+)\" ]]; then
            name=${BASH_REMATCH[1]}
            target=${name%%/*}
            [[ $name == upperview/page/* ]] && target=page
            if [[ $name == *..* ]]; then
                complain "$file:$number: include \"$name\" from the root of the tree, without .."
            elif [[ $name == */* && -n ${arrows[$target]+known} ]] && ! is_in "$target" "${reach[$folder]}"; then
                complain "$file:$number: $folder must not include $target (\"$name\")"
            elif [[ $name == tests/* || $name == bench/* || $name == fuzz/* ]]; then
                complain "$file:$number: $folder must not include \"$name\""
            fi
        elif [[ $line =~ ^[[:space:]]*#[[:space:]]*include[[:space:]]*\<(Q[A-Za-z]|Qt[A-Za-z]*/) ]]; then
            if is_in "$folder" "$without_qt"; then
                complain "$file:$number: $folder does without Qt (${line#*include })"
            fi
        fi
    done < <(grep -HnE '^[[:space:]]*#[[:space:]]*include' "$@" || true)
}

files=0
for folder in $order; do
    [[ -d $folder ]] || continue
    while IFS= read -r -d '' file; do
        files=$((files + 1))
        case $file in
            tools/sbdpage*) lines_of sbdpage "$file" ;;
            upperview/page/*) lines_of page "$file" ;;
            *) lines_of "$folder" "$file" ;;
        esac
    done < <(find "$folder" -type f \( -name '*.h' -o -name '*.cpp' \) -print0 | sort -z)
done

if [[ $bad -ne 0 ]]; then
    echo "The arrows stand in docs/architecture.md." >&2
    exit 1
fi
echo "includes: $files files follow the arrows"
