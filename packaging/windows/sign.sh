#!/usr/bin/env bash
# Signs programs for Windows in place, with what the environment gives; leaves them as they are where it gives nothing.
#   packaging/windows/sign.sh FILE...
#   packaging/windows/sign.sh --wanted      whether it would sign
# SBD_SIGN_COMMAND        a command that signs the file it gets as its last argument; or, by osslsigncode:
# SBD_SIGN_PFX            certificate and key (PKCS #12)
# SBD_SIGN_PASSWORD_FILE  file with the password of these; without it they have none
# SBD_SIGN_TIMESTAMP      address of a time stamp server (RFC 3161); without it signatures end with the certificate
set -euo pipefail
[[ $# -gt 0 ]] || { sed -n '2,8s/^# \?//p' "${BASH_SOURCE[0]}" >&2; exit 2; }
if [[ $1 == --wanted ]]; then
    [[ -n ${SBD_SIGN_COMMAND:-}${SBD_SIGN_PFX:-} ]]
    exit
fi

# A signature of Windows' kind stands in it.
signed() {
    x86_64-w64-mingw32-objdump -p "$1" | grep -E '^Entry 4 [0-9a-f]*[1-9a-f][0-9a-f]* .*Security' >/dev/null
}

sign() {
    if [[ -n ${SBD_SIGN_COMMAND:-} ]]; then
        bash -c "$SBD_SIGN_COMMAND \"\$1\"" sign "$1"
    elif [[ -n ${SBD_SIGN_PFX:-} ]]; then
        local password=(-pass '')
        [[ -z ${SBD_SIGN_PASSWORD_FILE:-} ]] || password=(-readpass "$SBD_SIGN_PASSWORD_FILE")
        osslsigncode sign -pkcs12 "$SBD_SIGN_PFX" "${password[@]}" -h sha256 -n 'KELD section' \
            ${SBD_SIGN_TIMESTAMP:+-ts "$SBD_SIGN_TIMESTAMP"} -in "$1" -out "$1.signed" >/dev/null
        chmod --reference="$1" "$1.signed"
        mv -f "$1.signed" "$1"
    else
        return 0
    fi
    signed "$1" || { echo "$1 is not signed after all" >&2; return 1; }
}

for file in "$@"; do
    sign "$file"
done
