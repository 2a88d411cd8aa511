#!/usr/bin/env bash
# What clang-tidy (.clang-tidy) says of the lines that changed since a commit; fails where it says anything.
#   scripts/check-tidy.sh [BASE]     BASE: where this branch left origin/main, else twenty commits back
# It needs the built preset dev: what moc makes is included.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
most_files=10
build=build/dev
if [[ ! -f $build/compile_commands.json ]]; then
    echo "Nothing is built in $build: cmake --preset dev, then build." >&2
    exit 1
fi

base=${1:-}
if [[ -z $base ]]; then
    base=$(git merge-base HEAD origin/main 2>/dev/null || true)
    if [[ -z $base || $base == "$(git rev-parse HEAD)" ]]; then
        base=$(git rev-list -n 21 --first-parent HEAD | tail -n 1)
    fi
fi

# The files that changed last; what was older was looked at when it was new. How many are left out is said.
mapfile -t changed < <({
    git diff --name-only HEAD -- '*.cpp'
    git log --format= --name-only "$base..HEAD" -- '*.cpp'
} | awk 'NF && !seen[$0]++' | while read -r file; do [[ ! -f $file ]] || echo "$file"; done)
if ((${#changed[@]} == 0)); then
    echo "tidy: no source file changed since $(git rev-parse --short "$base")"
    exit
fi
files=("${changed[@]:0:most_files}")
# The compiler's precompiled headers are not clang's.
mkdir -p build/tidy
sed -E 's/ -fpch-preprocess| -Winvalid-pch| -Werror| -include [^ ]*cmake_pch\.hxx//g' \
    "$build/compile_commands.json" >build/tidy/compile_commands.json
git diff -U0 --no-color --diff-filter=d "$base" -- "${files[@]}" |
    clang-tidy-diff-14.py -clang-tidy-binary clang-tidy-14 -p1 -path build/tidy -j "$(nproc)" -quiet \
        >build/tidy/said.txt 2>build/tidy/errors.txt || true
# What it says of a system header is no line of ours.
if grep -E '(warning|error): ' build/tidy/said.txt | grep -v '^/usr/'; then
    echo "tidy: the lines above; whole text in build/tidy/said.txt" >&2
    exit 1
fi
echo "tidy: ${#files[@]} of ${#changed[@]} changed files since $(git rev-parse --short "$base")"
