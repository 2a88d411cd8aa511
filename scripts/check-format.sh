#!/usr/bin/env bash
# Fails where a source file is not laid out as .clang-format says; --fix lays it out.
#   scripts/check-format.sh [--fix]
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
mapfile -t files < <(git ls-files --cached --others --exclude-standard '*.cpp' '*.h')
if [[ ${1:-} == --fix ]]; then
    clang-format-14 -i "${files[@]}"
    exit
fi
if ! output=$(clang-format-14 --dry-run --Werror "${files[@]}" 2>&1); then
    sed -n 's/: error: .*//p' <<<"$output" | sort -u
    echo "Laid out in another way than .clang-format says; scripts/check-format.sh --fix mends it." >&2
    exit 1
fi
echo "format: ${#files[@]} files"
