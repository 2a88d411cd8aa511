#!/usr/bin/env bash
# Packs what stands in a build folder for users of Windows: a .zip to unpack anywhere, an installer, and what winget has to
# know of it.
#   packaging/windows/package.sh BUILD_FOLDER OUT_FOLDER
# Programs and installer are signed if the environment says by what (sign.sh). SBD_DOWNLOAD_URL is the folder where the
# installer can be fetched. The same build gives the same bytes: times are those of the last commit, or of
# SOURCE_DATE_EPOCH; only signatures tell of their own time.
set -euo pipefail
if [[ $# -ne 2 ]]; then
    sed -n '2,7s/^# \?//p' "${BASH_SOURCE[0]}" >&2
    exit 2
fi
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
root=$(cd "$here/../.." && pwd)
build=$(cd "$1" && pwd)
mkdir -p "$2"
out=$(cd "$2" && pwd)
export LC_ALL=C.UTF-8 TZ=UTC # names of files, and their times
export SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(git -C "$root" log -1 --format=%ct)}

cached() { sed -n "s/^$1:[A-Z]*=//p" "$build/CMakeCache.txt"; }
version=$(cached CMAKE_PROJECT_VERSION)
IFS=';' read -r -a roots <<<"$(cached SBD_WINDOWS_ROOTS)" # Qt, and the compiler's DLLs
name=sbdstation-$version-windows-x86_64
copyright=$(grep -m 1 '^Copyright' "$root/LICENSE")
authors=${copyright#Copyright (c) [0-9]* }
stage=$build/package/$name
rm -rf "$build/package"
mkdir -p "$stage"

# What is loaded by name while the program runs, so that no import tells of it.
plugins=(platforms/qwindows.dll platforms/qoffscreen.dll styles/qwindowsvistastyle.dll tls/qschannelbackend.dll)

find_in_roots() {
    local folder
    for folder in "${roots[@]}"; do
        if [[ -f $folder/$1 ]]; then
            echo "$folder/$1"
            return
        fi
    done
    return 1
}

# take FILE PLACE: a program or DLL without symbols, and all that it imports.
take() {
    local dll file
    [[ ! -f $stage/$2 ]] || return 0
    mkdir -p "$(dirname "$stage/$2")"
    x86_64-w64-mingw32-strip -o "$stage/$2" "$1"
    chmod 0755 "$stage/$2"
    for dll in $(x86_64-w64-mingw32-objdump -p "$1" | sed -n 's/^\tDLL Name: //p'); do
        if ! grep -qixF "$dll" "$here/system-dlls.txt"; then
            file=$(find_in_roots "bin/$dll") || { echo "$2 needs $dll, which is nowhere" >&2; return 1; }
            take "$file" "$dll"
        fi
    done
}

# Text as editors of Windows like it: UTF-8 with its mark, lines that end with CR LF.
text() { { printf '\xEF\xBB\xBF'; awk '{ sub(/\r$/, ""); printf "%s\r\n", $0 }' "$1"; } >"$2"; }

programs() {
    local program plugin
    for program in app/sbdstation.exe tools/sbdtool.exe tools/sbdpage.exe; do
        take "$build/$program" "${program#*/}"
        "$here/sign.sh" "$stage/${program#*/}"
    done
    for plugin in "${plugins[@]}"; do
        take "$(find_in_roots "plugins/$plugin")" "plugins/$plugin"
    done
    printf '%s\r\n' '[Paths]' 'Prefix = .' 'Plugins = plugins' 'Translations = translations' >"$stage/qt.conf"
    install -D -m 0644 /usr/share/qt6/translations/qtbase_ja.qm "$stage/translations/qtbase_ja.qm"
}

examples() {
    local file
    (cd "$root" && find examples -regextype egrep -regex '.*\.(sbd|abd|CHK|Z[13][DFR])' -print0) |
        while IFS= read -r -d '' file; do
            install -D -m 0644 "$root/$file" "$stage/$file"
        done
    sed 's#\./run\.sh examples/box2/box2\.sbd#sbdstation.exe examples\\box2\\box2.sbd#' "$root/examples/README.md" |
        text /dev/stdin "$stage/examples/README.txt"
}

licences() {
    local to=$stage/licences of=/usr/share/doc qt gcc licence
    qt=$(sed -n 's/^set(PACKAGE_VERSION "\(.*\)")/\1/p' "$(find_in_roots lib/cmake/Qt6/Qt6ConfigVersionImpl.cmake)")
    gcc=$(x86_64-w64-mingw32-g++-posix -dumpversion)
    mkdir -p "$to/Qt-build"
    text "$root/LICENSE" "$to/KELD-section.txt"
    text "$of/qt6-base-dev/copyright" "$to/Qt.txt"
    text "$of/qt6-translations-l10n/copyright" "$to/Qt-translations.txt"
    text "$of/gcc-mingw-w64-base/copyright" "$to/GCC.txt"
    text "$of/mingw-w64-common/copyright" "$to/MinGW-w64.txt"
    text "$of/libtomlplusplus-dev/copyright" "$to/tomlplusplus.txt"
    text "$of/nlohmann-json3-dev/copyright" "$to/nlohmann-json.txt"
    text "$of/libxlsxwriter-dev/copyright" "$to/libxlsxwriter.txt"
    text "$of/libz-mingw-w64-dev/copyright" "$to/zlib.txt"
    for licence in LGPL-3 LGPL-2.1 GPL-3 GPL-2 Apache-2.0 MPL-2.0; do
        text "/usr/share/common-licenses/$licence" "$to/$licence.txt"
    done
    cp "$here/qt.sh" "$here/toolchain.cmake" "$to/Qt-build/"
    sed -e "s/@XLSXWRITER@/$(dpkg-query -W -f '${source:Version}' libxlsxwriter-dev)/g" -e "s/@QT@/$qt/g" -e "s/@QT_SOURCE@/$(dpkg-query -W -f '${source:Version}' qt6-base-dev)/g" \
        -e "s/@GCC@/${gcc%-posix}/g" "$here/licences/README.ja.txt" |
        text /dev/stdin "$to/README.ja.txt"
}

documents() {
    local unsigned=p # the lines about what Windows says of programs without a publisher
    ! "$here/sign.sh" --wanted || unsigned=d
    sed -e "/^@UNSIGNED@/{s///;$unsigned;d}" -e "s/@VERSION@/$version/g" "$here/README.ja.txt" | text /dev/stdin "$stage/README.ja.txt"
    text "$here/deployment.sample.ini" "$stage/deployment.sample.ini"
}

same_times() {
    find "$stage" -type f -not -name '*.exe' -not -name '*.dll' -exec chmod 0644 {} +
    find "$stage" -exec touch --no-dereference --date="@$SOURCE_DATE_EPOCH" {} +
}

# Not by zip: it does not mark the names as UTF-8, by which Windows knows what they are.
archive() {
    python3 - "$build/package" "$name" "$out/$name.zip" <<'PYTHON'
import os, sys, time, zipfile
folder, name, out = sys.argv[1:]
os.chdir(folder)
stamp = time.gmtime(int(os.environ["SOURCE_DATE_EPOCH"]))[:6]
with zipfile.ZipFile(out, "w", zipfile.ZIP_DEFLATED, compresslevel=9) as archive:
    for path in sorted(os.path.join(where, file) for where, _, files in os.walk(name) for file in files):
        entry = zipfile.ZipInfo(path, stamp)
        entry.compress_type = zipfile.ZIP_DEFLATED
        entry.external_attr = os.stat(path).st_mode << 16
        with open(path, "rb") as source:
            archive.writestr(entry, source.read())
PYTHON
}

# What the installer brings and its uninstaller takes away, from what stands in the stage.
#   files.nsh       the statements
#   uninstall.lst   the same list for the installer of a later version: UTF-16, folders behind their files
example_of() { cut -d / -f 1,2 <<<"$1" | tr / '\\'; } # what stays whole once the user has worked in it
file_list() {
    local path folder
    (cd "$stage" && find . -mindepth 1 -type f -printf '%P\n' | LC_ALL=C sort) >"$build/package/files"
    (cd "$stage" && find . -mindepth 1 -depth -type d -printf '%P\n') >"$build/package/folders"
    if grep -q '[$"`]' "$build/package/files"; then
        echo "A name that the installer's language would read as its own" >&2
        return 1
    fi
    {
        echo '!macro InstallFiles'
        while read -r folder; do
            echo "  SetOutPath \"\$INSTDIR${folder:+\\}${folder//\//\\}\""
            while read -r path; do
                if [[ $path == examples/* ]]; then
                    echo "  !insertmacro InstallExample \"$(example_of "$path")\" \"$path\""
                else
                    echo "  File \"\${STAGE}/$path\""
                fi
            done < <(grep -x "${folder:+$folder/}[^/]*" "$build/package/files")
        done < <(echo; LC_ALL=C sort "$build/package/folders")
        echo '!macroend'
        echo '!macro RemoveFiles'
        while read -r path; do
            if [[ $path == examples/* ]]; then
                echo "  !insertmacro RemoveExample \"$(example_of "$path")\" \"${path//\//\\}\""
            else
                echo "  Delete \"\$INSTDIR\\${path//\//\\}\""
            fi
        done <"$build/package/files"
        while read -r folder; do
            echo "  RMDir \"\$INSTDIR\\${folder//\//\\}\""
        done <"$build/package/folders"
        echo '!macroend'
        echo '!macro ForEachFile What'
        while read -r path; do
            echo "  !insertmacro \${What} \"${path//\//\\}\""
        done <"$build/package/files"
        echo '!macroend'
    } >"$build/package/files.nsh"
    { cat "$build/package/files"; sed 's#$#/#' "$build/package/folders"; } | sed -e 's#/#\\#g' -e 's/$/\r/' |
        iconv -f UTF-8 -t UTF-16LE >"$build/package/uninstall.lst"
    touch --date="@$SOURCE_DATE_EPOCH" "$build/package/uninstall.lst"
}

installer() {
    rsvg-convert "$here/welcome.svg" | convert png:- -type TrueColor "BMP3:$build/package/welcome.bmp"
    touch --date="@$SOURCE_DATE_EPOCH" "$build/package/welcome.bmp"
    rm -f "$out/$name-setup.exe"
    makensis -V2 -WX -INPUTCHARSET UTF8 -DVERSION="$version" -DCOPYRIGHT="$copyright" \
        -DAUTHORS="$authors" -DSIGN="$here/sign.sh" -DSTAGE="$stage" -DLISTS="$build/package" \
        -DICON="$build/app/windows/sbdstation.ico" -DKILOBYTES="$(du -sk --apparent-size "$stage" | cut -f 1)" \
        -DOUTPUT="$out/$name-setup.exe" "$here/setup.nsi"
}

# The manifests of winget; the address comes from outside, since nobody knows it while it is packed.
winget() {
    local template to=$out/winget url
    url=${SBD_DOWNLOAD_URL:-https://example.org/sbdstation/$version}
    rm -rf "$to"
    mkdir "$to"
    for template in "$here"/winget/*.yaml.in; do
        sed -e "s/@VERSION@/$version/g" -e "s/@PUBLISHER@/$authors/g" -e "s/@COPYRIGHT@/$copyright/g" \
            -e "s|@URL@|${url%/}/$name-setup.exe|g" -e "s/@DATE@/$(date --date="@$SOURCE_DATE_EPOCH" +%F)/g" \
            -e "s/@SHA256@/$(sha256sum "$out/$name-setup.exe" | cut -d ' ' -f 1 | tr a-f A-F)/g" \
            "$template" >"$to/$(basename "$template" .in)"
    done
    [[ -n ${SBD_DOWNLOAD_URL:-} ]] || echo "winget: SBD_DOWNLOAD_URL is not set; the manifests name $url"
}

programs
examples
licences
documents
same_times
archive
file_list
installer
winget
printf '%s\n' "$(wc -l <"$build/package/files") files, $(du -sh --apparent-size "$stage" | cut -f 1)"
(cd "$out" && du -h --apparent-size "$name.zip" "$name-setup.exe")
