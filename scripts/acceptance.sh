#!/usr/bin/env bash
# Runs the acceptance cases that this version has to pass: .ci/acceptance-cases.txt.
#   scripts/acceptance.sh FOLDER SBDTOOL...
set -euo pipefail
folder=${1:?the folder of the cases}
shift
tool=("$@")
[[ $# -gt 0 ]] || { echo "which program?" >&2; exit 2; }
list=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)/.ci/acceptance-cases.txt

failed=0
while read -r script only; do
    [[ -n $script && $script != '#'* ]] || continue
    case $script in
        project) command=(python3 "$folder/run_project.py") ;;
        analysis) command=(python3 "$folder/analysis/run_analysis.py") ;;
        check) command=(python3 "$folder/check/run_check.py") ;;
        tables) command=(python3 "$folder/tables/run_tables.py") ;;
        *) echo "unknown word in $list: $script" >&2; exit 2 ;;
    esac
    [[ -z $only ]] || command+=(--only "$only")
    if output=$("${command[@]}" "${tool[@]}" 2>&1 </dev/null) && [[ ${output##*$'\n'} != "0 passed,"* ]]; then
        echo "$script ${only:-all}: ${output##*$'\n'}"
    else
        echo "$script ${only:-all}: FAILED"
        tail -n 40 <<<"$output"
        failed=1
    fi
done <"$list"
exit "$failed"
