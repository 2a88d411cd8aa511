#!/usr/bin/env bash
# Draws an example before and after each slip of a list, so that one can look which are seen at a glance, and prints what
# the list of the drawing says more. The same slips are judged by tests/drawing/planted_mistakes_test.cpp.
#   scripts/planted-mistakes.sh [folder of the build] [folder for the pictures]
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build=${1:-$root/build/dev}
out=${2:-$root/build/planted-mistakes}
tools=$build/tools
export QT_QPA_PLATFORM=${QT_QPA_PLATFORM:-offscreen} LC_ALL=C.UTF-8
mkdir -p "$out"
sample=$root/examples/plate4

# name | block row column | text | view and its options
mistakes='depth-of-18-m|311 6 5|18|elevation
splice-60-m-behind-its-stiffener|321 3 7|60|elevation
splice-at-another-cross-beam|321 4 5|C4|elevation
splice-at-a-stiffener-that-is-not-there|321 5 6|8|elevation
50-stiffeners-in-a-bay|313 2 8|50|elevation
500-stiffeners-in-a-bay|313 2 8|500|elevation
stiffeners-from-the-wrong-cross-beam-on|313 7 3|S1|elevation
stiffeners-to-an-unknown-cross-beam|313 7 4|S22|elevation
flange-of-160-mm|332 2 8|160|elevation
flange-50-mm-wide|332 4 7|50|elevation
flange-of-an-unknown-section|332 6 3|SEC33|elevation
web-of-100-mm|331 3 7|100|elevation
sections-out-of-order|322 6 5|C4|elevation
bearing-line-at-another-cross-beam|307 2 3|C6|elevation
horizontal-stiffeners-without-their-side|315 2 7|9|elevation
end-of-the-girder-in-another-unit|404 1 3|3500|elevation
end-cross-beam-of-no-element|523 2 5|要素無し|plan
lateral-with-swapped-cross-lines|573 2 3|C1|plan
lateral-to-a-girder-further-away|573 2 2|G4|plan
slab-of-2.3-m|312 1 8|2.300|section --station S1
cross-beam-1.5-m-below-the-flange|532 2 6|1500|section --station S1
cross-beam-flange-2.6-m-wide|533 2 5|2600|plan
sway-bracing-below-itself|542 2 7|2700|section --station C1'

list_of() { # project and view: what cannot be drawn, or nothing
    "$tools/sbdpage" $2 "$1" --list 2>/dev/null | sort || true
}

number=0
while IFS='|' read -r name place text view; do
    number=$((number + 1))
    base=$(printf '%s/%02d-%s' "$out" "$number" "$name")
    folder=$(mktemp -d)
    cp -r "$sample/." "$folder"
    read -r block row column <<<"$place"
    printf '[{"block": %s, "row": %s, "column": %s, "text": "%s"}]' "$block" "$row" "$column" "$text" >"$folder/edit.json"
    said=$("$tools/sbdtool" set "$sample/plate4.sbd" "$folder/plate4.sbd" "$folder/edit.json") || true
    if ! grep -q '"refused":\[\]' <<<"$said"; then
        echo "$name: $said" >&2
    fi
    "$tools/sbdpage" $view "$sample/plate4.sbd" --png "$base-before.png" --scale 200 2>/dev/null || true
    "$tools/sbdpage" $view "$folder/plate4.sbd" --png "$folder/plain.png" --scale 200 2>/dev/null || true
    same='is another'
    cmp -s "$base-before.png" "$folder/plain.png" && same='is the same'
    "$tools/sbdpage" $view "$folder/plate4.sbd" --png "$base-after.png" --scale 200 --block "$block" --row "$row" 2>/dev/null || true
    echo "$number $name: the picture $same"
    comm -13 <(list_of "$sample/plate4.sbd" "$view") <(list_of "$folder/plate4.sbd" "$view") | sed 's/^/    /'
    rm -rf "$folder"
done <<<"$mistakes"
echo "pictures: $out"
