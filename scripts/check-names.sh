#!/usr/bin/env bash
# Fails where a class is not named as docs/naming.md has it: with a C where other files know it (it stands in a header),
# without one where a single source file does and no header declares it.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
wrong=0
tell() {
    echo "$1: $2" >&2
    wrong=1
}
declared=$(git grep -hoE '\bclass C[A-Z]\w*' -- '*.h' | sort -u)
while IFS=: read -r file line text; do
    tell "$file:$line" "a class of a header begins with C: $text"
done < <(git grep -nE '^class [A-Z]\w*( final)?( :.*)? ?\{?$' -- '*.h' ':!tests' ':!bench' ':!fuzz' | grep -vE 'class C[A-Z]|;$' || true)
while IFS=: read -r file line text; do
    name=$(grep -oE 'class C[A-Z]\w*' <<<"$text" | head -n 1)
    grep -qxF "$name" <<<"$declared" || tell "$file:$line" "no header declares it, so it takes no C: $text"
done < <(git grep -nE '^class C[A-Z]\w*( final)?( :.*| \{|,?)$' -- '*.cpp' | grep -v ';$' || true)
((wrong == 0)) || exit 1
echo "names: classes of headers and of single files are told apart"
