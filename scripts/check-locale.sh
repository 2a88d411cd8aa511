#!/usr/bin/env bash
# Fails where what reads or writes files, or prints values, calls a function that follows the user's locale: a decimal
# comma in a project file is another project. std::from_chars, std::to_chars and the byte classes of project/text.h do not.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
folders=(commands project sbdfile sheets compare results panelmodel check book search document tools upperview/page)
banned='(f|s|sn|vs|vsn)?printf|s?scanf|fscanf|strto(d|f|ld|l|ll|ul|ull)|ato(f|i|l|ll)|sto(d|f|ld|i|l|ll|ul|ull)'
banned+='|is(alnum|alpha|blank|cntrl|digit|graph|lower|print|punct|space|upper|xdigit)|to(lower|upper)|(str|wcs)coll'
banned+='|setlocale|localeconv|QLocale|[io]?stringstream|[io]?fstream|std::(locale|to_string\(.*(\.|double))'
if hits=$(grep -rnE --include='*.cpp' --include='*.h' "(^|[^A-Za-z0-9_.>])($banned)[[:space:]]*[(:<]" "${folders[@]}" |
    grep -vE '^[^:]+:[0-9]+:[[:space:]]*//'); then
    echo "$hits" >&2
    echo "These follow the locale." >&2
    exit 1
fi
echo "locale: none of ${#folders[@]} folders asks for it"
