#!/usr/bin/env bash
# Checks the archive and the installer for Windows, under Wine in a fresh prefix, with nothing of the build's folders.
#   packaging/windows/check-package.sh DIST_FOLDER            all of it, one to three minutes
#   packaging/windows/check-package.sh DIST_FOLDER --quick    the archive and its programs, without a screen
# Pictures of the windows are left in build/windows-package-check/pictures; look at them.
set -euo pipefail
quick=no
[[ ${2:-} != --quick ]] || quick=yes
if [[ $# -lt 1 || $# -gt 2 || ($# -eq 2 && $quick == no) ]]; then
    sed -n '2,4s/^# \?//p' "${BASH_SOURCE[0]}" >&2
    exit 2
fi
dist=$(realpath "$1")
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
cd "$here/../.."
source scripts/steps.sh
scripts/setup.sh windows
export LC_ALL=C.UTF-8

archive=$(echo "$dist"/sbdstation-*-windows-x86_64.zip)
setup=$(echo "$dist"/sbdstation-*-windows-x86_64-setup.exe)
[[ -f $archive && -f $setup ]] || { echo "$dist does not hold one archive and one installer" >&2; exit 2; }
folder=$(basename "$archive" .zip)
version=${folder#sbdstation-}
version=${version%-windows-x86_64}
kept=$PWD/build/windows-package-check
pictures=$kept/pictures
rm -rf "$pictures"
mkdir -p "$pictures"
work=$(mktemp -d "$kept/run-XXXXXX")
portable="$work/配布 その１/$folder"
prefix=$work/prefix
user=$prefix/drive_c/users/$(id -un) # as Wine calls it
installed="$user/AppData/Local/Programs/KELD section"
link="$user/AppData/Roaming/Microsoft/Windows/Start Menu/Programs/KELD section.lnk"
classes='HKCU\Software\Classes'
uninstall_key='HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\KELD section'
wine=/usr/lib/wine/wine64
[[ -x $wine ]] || wine=$(command -v wine64)
screen=() # processes of the screen

finish() {
    WINEPREFIX=$prefix "$(dirname "$wine")/wineserver" -k 2>/dev/null || true
    [[ ${#screen[@]} -eq 0 ]] || kill "${screen[@]}" 2>/dev/null || true
    sleep 1
    rm -rf "$work"
}
trap finish EXIT
trap 'exit 130' INT
trap 'exit 143' TERM HUP

fail() {
    echo "FAILED: $*" >&2
    return 1
}

# A Japanese Windows, for which the system has to know Japanese.
mkdir -p "$work/locale" "$work/home" "$work/run"
chmod 0700 "$work/run"
localedef -i ja_JP -f UTF-8 "$work/locale/ja_JP.UTF-8"
windows() {
    env -i PATH=/usr/bin:/bin USER="$(id -un)" HOME="$work/home" XDG_RUNTIME_DIR="$work/run" \
        ${DISPLAY:+DISPLAY="$DISPLAY"} LOCPATH="$work/locale" LC_ALL=ja_JP.UTF-8 WINEPREFIX="$prefix" WINEDEBUG="${debug:--all}" \
        WINEDLLOVERRIDES='mscoree=;mshtml=;winemenubuilder.exe=' timeout 180 "$wine" "$@"
}

# value KEY NAME: a value of the registry; the default one without a name.
value() {
    local which=(/ve)
    [[ $# -eq 1 ]] || which=(/v "$2")
    windows reg query "$1" "${which[@]}" 2>/dev/null | iconv -c -f CP932 -t UTF-8 | tr -d '\r' |
        sed -n 's/.* REG_[A-Z]* *//p'
}
expect() { [[ $2 == "$3" ]] || fail "$1: \"$2\" and not \"$3\""; }

# wait_for SECONDS COMMAND...
wait_for() {
    local end=$((SECONDS + $1))
    shift
    until "$@"; do
        [[ $SECONDS -lt $end ]] || return 1
        sleep 0.5
    done
}
all_ended() { WINEPREFIX=$prefix timeout 60 "$(dirname "$wine")/wineserver" -w; }
imports() { x86_64-w64-mingw32-objdump -p "$1" | sed -n 's/^\tDLL Name: //p'; }
programs_of() { find "$1" -name '*.exe' -o -name '*.dll'; }

unpacked_files() {
    local file missing=0 times
    mkdir -p "$(dirname "$portable")"
    unzip -q "$archive" -d "$(dirname "$portable")"
    expect "folders in the archive" "$(ls "$(dirname "$portable")")" "$folder"
    for file in sbdstation.exe sbdtool.exe sbdpage.exe qt.conf README.ja.txt deployment.sample.ini \
        plugins/{platforms/qwindows,platforms/qoffscreen,styles/qwindowsvistastyle,tls/qschannelbackend}.dll \
        translations/qtbase_ja.qm \
        licences/{README.ja,KELD-section,Qt,LGPL-3,GPL-3,GCC,MinGW-w64,tomlplusplus,nlohmann-json,libxlsxwriter,zlib,MPL-2.0}.txt; do
        [[ -s $portable/$file ]] || { echo "missing: $file"; missing=1; }
    done
    diff --recursive --brief --exclude='README.*' examples "$portable/examples"
    for file in "$portable"/README.ja.txt "$portable"/*.ini "$portable"/licences/*.txt; do
        [[ $(head -c 3 "$file") == $'\xEF\xBB\xBF' ]] || { echo "not marked as UTF-8: $file"; missing=1; }
        [[ $(wc -l <"$file") -eq $(grep -c $'\r$' "$file") ]] ||
            { echo "not all lines end with CR LF: $file"; missing=1; }
    done
    ! grep -r -n '@[A-Z_]*@' "$portable" --include='*.txt' || fail "names that should have been replaced"
    times=$(find "$portable" -type f -printf '%T@\n' | sort -u | wc -l)
    expect "different times of files" "$times" 1
    return "$missing"
}

# Every DLL that is asked for is there or belongs to Windows; every one that is there is asked for.
needed_dlls() {
    local file dll failed=0
    programs_of "$portable" | while read -r file; do imports "$file"; done >"$work/imports"
    while read -r file; do
        while read -r dll; do
            [[ -n $(find "$portable" -maxdepth 1 -iname "$dll") ]] || grep -qixF "$dll" "$here/system-dlls.txt" ||
                { echo "${file#"$portable/"} needs $dll"; failed=1; }
        done < <(imports "$file")
    done < <(programs_of "$portable")
    for file in "$portable"/*.dll; do
        grep -qixF "$(basename "$file")" "$work/imports" || { echo "nobody needs $(basename "$file")"; failed=1; }
    done
    return "$failed"
}

resources() {
    local program listed sizes
    for program in sbdstation sbdtool sbdpage; do
        wrestool -x --raw --type=16 "$portable/$program.exe" | iconv -c -f UTF-16LE -t UTF-8 >"$work/version"
        for listed in 041104B0 "KELD section" "$program.exe" "$version"; do
            grep -aqF "$listed" "$work/version" || fail "$program.exe: its version information lacks $listed"
        done
    done
    program=$portable/sbdstation.exe
    expect "manifests" "$(wrestool --list --type=24 "$program" | wc -l)" 1
    wrestool -x --raw --type=24 "$program" >"$work/manifest"
    python3 -c 'import sys, xml.dom.minidom; xml.dom.minidom.parse(sys.argv[1])' "$work/manifest"
    for listed in PerMonitorV2 '>true</longPathAware>' asInvoker Common-Controls \
        8e0f7a12-bfb3-4fe8-b9a5-48fd50a15a9a; do
        grep -qF "$listed" "$work/manifest" || fail "the manifest lacks $listed"
    done
    ! grep -q '<activeCodePage' "$work/manifest" || fail "the manifest sets a code page"
    for listed in IDI_ICON1 IDI_ICON2; do
        wrestool -x --type=14 --name="$listed" "$program" >"$work/$listed.ico"
        sizes=$(icotool --list "$work/$listed.ico" | sed 's/.*--width=\([0-9]*\).*/\1/' | sort -n | tr '\n' ' ')
        expect "sizes of $listed" "$sizes" "16 20 24 32 40 48 64 128 256 "
        icotool --extract --width=64 --output="$pictures/$listed.png" "$work/$listed.ico"
    done
}

# A signature of Windows' kind stands in a program, whoever has given it.
signed() { x86_64-w64-mingw32-objdump -p "$1" | grep -E '^Entry 4 [0-9a-f]*[1-9a-f][0-9a-f]* .*Security' >/dev/null; }
signatures() {
    local file yes=0
    for file in "$setup" "$portable"/sbd*.exe; do
        ! signed "$file" || yes=$((yes + 1))
    done
    [[ $yes -eq 0 || $yes -eq 4 ]] || fail "$yes of 4 programs are signed"
    echo "$yes of 4 programs are signed"
    local warns=no
    ! grep -q '発行元の署名がない' "$portable/README.ja.txt" || warns=yes
    [[ $yes$warns == 0yes || $yes$warns == 4no ]] || fail "README.ja.txt tells of the signature otherwise"
}

winget_manifests() {
    local file field listed
    listed() { sed -n "s/^[- ]*$1: *\"\?\([^\"]*\)\"\?\$/\1/p" "$dist/winget/KELD.Section$2.yaml" | sort -u; }
    ! grep -n '@[A-Z0-9_]*@' "$dist"/winget/*.yaml || fail "names that should have been replaced"
    for file in '' .installer .locale.ja-JP; do
        for field in PackageIdentifier:KELD.Section PackageVersion:"$version" ManifestVersion:1.6.0; do
            expect "${field%%:*}$file" "$(listed "${field%%:*}" "$file")" "${field#*:}"
        done
    done
    expect "manifests" "$(find "$dist/winget" -type f | wc -l)" 3
    expect "DefaultLocale" "$(listed DefaultLocale '')" "$(listed PackageLocale .locale.ja-JP)"
    expect "InstallerType" "$(listed InstallerType .installer)" nullsoft
    expect "Scope" "$(listed Scope .installer)" user
    expect "InstallerSha256" "$(listed InstallerSha256 .installer)" "$(sha256sum "$setup" | cut -d ' ' -f 1 | tr a-f A-F)"
    [[ $(listed InstallerUrl .installer) == https://*/${setup##*/} ]] || fail "InstallerUrl"
}

fresh_prefix() {
    windows wineboot --init >/dev/null 2>&1
    windows reg add 'HKCU\Software\Wine' /v Version /d win10 /f >/dev/null
    expect "the code page of Windows" "$(value 'HKLM\System\CurrentControlSet\Control\Nls\CodePage' ACP)" 932
    mkdir -p "$user/Documents"
}

# All that is loaded from a file of Windows' kind comes out of the folder.
only_from() {
    local strange
    strange=$(grep -a 'trace:loaddll:.*: native' "$2" | grep -avF "$(basename "$1")\\" || true)
    [[ -z $strange ]] || { echo "$strange"; fail "DLLs from elsewhere"; }
    grep -aqF 'Qt6Core.dll' "$2" || fail "nothing was loaded"
}

portable_programs() {
    local project="$work/配布 その１/橋 予備①.sbd"
    cp "$portable/examples/plate4/plate4.sbd" "$project"
    expect "sbdstation --version" "$(windows "$portable/sbdstation.exe" --version | tr -d '\r')" "sbdstation $version"
    windows "$portable/sbdtool.exe" dump "$project" | grep -q '"' || fail "sbdtool dump"
    windows "$portable/sbdtool.exe" rewrite "$project" "$project.2"
    cmp "$project" "$project.2" || fail "sbdtool does not write what it has read"
    debug=-all,+loaddll windows "$portable/sbdpage.exe" --project "$project" --png "$pictures/page-322.png" 322 \
        2>"$work/page.log"
    only_from "$portable" "$work/page.log"
    debug=-all,+loaddll,+file windows "$portable/sbdstation.exe" --screenshot "$pictures/screenshot.png" --block 322 \
        "$project" 2>"$work/station.log"
    only_from "$portable" "$work/station.log"
    grep -aqF 'translations\\qtbase_ja.qm' "$work/station.log" ||
        fail "the words of Qt's dialogs are not looked for here"
    expect "size of the picture" "$(identify -format '%wx%h' "$pictures/screenshot.png")" 1366x768
    [[ -s $pictures/page-322.png ]] || fail "no picture of the page"
    expect "associations by the archive" "$(value "$classes\\.sbd")" ""
}

start_screen() {
    all_ended # what was started without a screen goes on without one
    exec 3<>"$work/display"
    Xvfb -displayfd 3 -screen 0 1280x900x24 3>"$work/display" >/dev/null 2>&1 &
    screen+=($!)
    wait_for 20 test -s "$work/display"
    exec 3>&-
    DISPLAY=:$(<"$work/display")
    export DISPLAY
    openbox >/dev/null 2>&1 &
    screen+=($!)
}
window() { xdotool search --onlyvisible --name "$1" >"$work/window" 2>/dev/null; }
shoot() { import -window root "$pictures/$1.png"; }

files_of() { (cd "$1" && find . -type f ! -name uninstall.exe ! -name uninstall.lst | sort); }

silent_install() {
    windows reg add "$classes\\.sbd" /ve /d Other.Program /f >/dev/null
    windows "$setup" /S
    diff <(files_of "$portable") <(files_of "$installed") || fail "not what the archive brings"
    diff --recursive --brief --exclude='uninstall.*' "$portable" "$installed"
    [[ -f $link && -f $installed/uninstall.exe ]] || fail "no entry in the start menu, or no uninstaller"
    grep -aq 'sbdstation.exe' "$link" || fail "the entry of the start menu leads elsewhere"
    local place
    place="C:\\users\\$(id -un)\\AppData\\Local\\Programs\\KELD section"
    expect "type of *.sbd" "$(value "$classes\\.sbd")" sbd.Document
    expect "command" "$(value "$classes\\sbd.Document\\shell\\open\\command")" "\"$place\\sbdstation.exe\" \"%1\""
    expect "icon" "$(value "$classes\\sbd.Document\\DefaultIcon")" "\"$place\\sbdstation.exe\",1"
    expect "DisplayName" "$(value "$uninstall_key" DisplayName)" "KELD section"
    expect "DisplayVersion" "$(value "$uninstall_key" DisplayVersion)" "$version"
    expect "UninstallString" "$(value "$uninstall_key" UninstallString)" "\"$place\\uninstall.exe\""
    (($(value "$uninstall_key" EstimatedSize) > 20000)) || fail "EstimatedSize"
    expect "winget's name of the entry" "$(value "$uninstall_key" DisplayName)" \
        "$(sed -n 's/^ *ProductCode: //p' "$dist/winget/KELD.Section.installer.yaml")"
    ! signed "$setup" || signed "$installed/uninstall.exe" || fail "the uninstaller is not signed"
    # An installation that was broken off, before its list came, is done again.
    rm "$installed"/{uninstall.lst,examples/plate4/plate4.abd}
    windows "$setup" /S
    diff --recursive --brief --exclude='uninstall.*' "$portable" "$installed"
}

# A double click on a project, and what installer and uninstaller say while it is open.
association() {
    local project="$user/Documents/橋 予備①.sbd" code=0
    cp "$portable/examples/plate4/plate4.sbd" "$project"
    # Windows looks for file types under the user's key by itself; Wine 8 does not.
    windows reg copy "$classes" 'HKLM\Software\Classes' /s /f >/dev/null
    windows start /unix "$project" &
    wait_for 60 window '橋 予備①' || { shoot association-failed; fail "no window with the project's name"; }
    sleep 3
    shoot association
    [[ -f "$user/AppData/Roaming/Microsoft/Windows/Recent/橋 予備①.sbd.lnk" ]] || fail "not among Windows' recent files"
    windows "$setup" /S || code=$?
    expect "installing over a program that runs" "$code" 2
    windows "$installed/uninstall.exe" /S
    sleep 3
    [[ -f $installed/Qt6Core.dll && -n $(value "$uninstall_key" DisplayName) ]] || fail "removed while it runs"
    windows "$setup" &
    wait_for 60 window 'KELD section セットアップ' || fail "the installer does not come up"
    sleep 1
    xdotool windowactivate --sync "$(head -n 1 "$work/window")" key alt+n
    wait_for 60 windows_open 2 'KELD section セットアップ' || { shoot installer-silent; fail "the installer says nothing"; }
    sleep 1
    shoot installer-running
    xdotool key Tab Return # gives up
    wait_for 30 windows_open 1 'KELD section セットアップ' || { shoot still-open; fail "the question stays"; }
    sleep 1
    xdotool windowactivate --sync "$(head -n 1 "$work/window")" key Escape
    wait_for 30 gone 'KELD section セットアップ' || { shoot still-open; fail "the installer does not give up"; }
    window '橋 予備①'
    xdotool windowactivate --sync "$(head -n 1 "$work/window")" key alt+F4
    all_ended || { shoot still-open; fail "the program does not end"; }
    windows reg delete 'HKLM\Software\Classes\.sbd' /f >/dev/null
    windows reg delete 'HKLM\Software\Classes\sbd.Document' /f >/dev/null
}
gone() { ! window "$1"; }
windows_open() { window "$2" && [[ $(wc -l <"$work/window") -eq $1 ]]; }

changed_by_user() {
    [[ $(<"$installed/HOLM4_W_CROSS.exe") == engine && $(<"$installed/deployment.ini") == '[Version]' &&
        $(<"$installed/examples/box2/box2.sbd") == changed && $(<"$installed/examples/box2/new.sbd") == new &&
        $(<"$installed/$calculated_file") == calculated ]]
}
calculated_file=examples/single1/single1_計算結果/single1.Z1D
upgrade() {
    local old="$installed/plugins/old"
    echo engine >"$installed/HOLM4_W_CROSS.exe"
    echo '[Version]' >"$installed/deployment.ini"
    echo changed >"$installed/examples/box2/box2.sbd"
    echo new >"$installed/examples/box2/new.sbd"
    echo calculated >"$installed/$calculated_file"
    # Examples of an older version: one that nobody has touched goes, what stands beside the user's own stays.
    mkdir "$installed/examples/old"
    echo old | tee "$installed"/examples/{old/old.sbd,old/old.abd,box2/old.abd} >/dev/null
    touch --reference="$installed/uninstall.lst" "$installed"/examples/{old/old.sbd,old/old.abd,box2/old.abd}
    mkdir "$old"
    echo old >"$old/旧.dll"
    echo outside >"$user/outside.txt"
    echo broken >"$installed/Qt6Core.dll"
    rm "$installed/translations/qtbase_ja.qm"
    # What an older version would have brought.
    printf '%s\r\n' 'plugins\old\旧.dll' 'plugins\old\' 'examples\old\old.sbd' 'examples\old\old.abd' \
        'examples\old\' 'examples\box2\old.abd' '..\..\..\..\outside.txt' '..\..\..\..\..\outside.txt' |
        iconv -f UTF-8 -t UTF-16LE | cat - "$installed/uninstall.lst" >"$work/list"
    touch --reference="$installed/uninstall.lst" "$work/list"
    cp --preserve=timestamps "$work/list" "$installed/uninstall.lst"
    windows "$setup" /S
    [[ ! -e $old && ! -e $installed/examples/old ]] || fail "what the older version brought is left behind"
    [[ -f $installed/examples/box2/old.abd ]] || fail "a file beside a changed project was removed"
    [[ -f $user/outside.txt ]] || fail "a file outside the folder was removed"
    changed_by_user || fail "what the user has put there is gone"
    diff --recursive --brief "$portable" "$installed" >"$work/differences" || true
    # The list and the uninstaller are not in the archive.
    grep -vE 'Only in .*(HOLM4|deployment.ini|new.sbd|old.abd|uninstall)|box2.sbd|single1.Z1D' "$work/differences" >"$work/unexpected" || true
    expect "differences after the upgrade" "$(<"$work/unexpected")" ""
    expect "what *.sbd was before" "$(value "$uninstall_key" PreviousType)" Other.Program
    # An older version over a newer one asks; where nobody can be asked nothing is done.
    local code=0
    windows reg add "$uninstall_key" /v DisplayVersion /d 99.0.0 /f >/dev/null
    windows "$setup" /S || code=$?
    expect "installing over a newer version" "$code" 4
    expect "the version behind that" "$(value "$uninstall_key" DisplayVersion)" 99.0.0
    windows "$setup" /S /FORCE
    expect "the version behind an order" "$(value "$uninstall_key" DisplayVersion)" "$version"
}

# Examples stay whole once one of their files was changed, in whatever folder of theirs.
left_by_user() {
    {
        printf './%s\n' HOLM4_W_CROSS.exe deployment.ini examples/box2/{new.sbd,old.abd}
        (cd "$portable" && find ./examples/{box2,single1} -type f)
    } | sort >"$work/expected"
    files_of "$installed" | diff "$work/expected" - || fail "not what should be left"
}

# To another folder and back.
another_folder() {
    local other="$prefix/drive_c/別の場所/KELD section" here
    read -r -a here <<<"$(value "$uninstall_key" InstallLocation)"
    windows "$setup" /S '/D=C:\別の場所\KELD' section # its blank is not quoted there
    diff <(files_of "$portable") <(files_of "$other") || fail "not what the archive brings"
    left_by_user
    expect "command" "$(value "$classes\\sbd.Document\\shell\\open\\command")" \
        '"C:\別の場所\KELD section\sbdstation.exe" "%1"'
    windows "$setup" /S "/D=${here[0]}" "${here[@]:1}"
    [[ ! -e $other ]] || fail "the folder is left"
    [[ -f $installed/sbdstation.exe ]] || fail "not installed where it should be"
    changed_by_user || fail "what the user has put there is gone"
    expect "what *.sbd was before" "$(value "$uninstall_key" PreviousType)" Other.Program
    expect "what the command was before" "$(value "$uninstall_key" PreviousCommand)" ""
}

uninstalled() { [[ ! -f $installed/uninstall.exe && -z $(value "$uninstall_key" DisplayName) ]]; }
uninstall() {
    windows reg add 'HKCU\Software\KELD\KELD section\Language' /v kept /d yes /f >/dev/null
    windows "$installed/uninstall.exe" /S
    wait_for 60 uninstalled || fail "the uninstaller did not do its work"
    sleep 2
    changed_by_user || fail "what the user has put there is gone"
    left_by_user
    [[ ! -e $link ]] || fail "the entry of the start menu is left"
    [[ -f "$user/Documents/橋 予備①.sbd" ]] || fail "the project is gone"
    expect "settings" "$(value 'HKCU\Software\KELD\KELD section\Language' kept)" yes
    expect "type of *.sbd" "$(value "$classes\\.sbd")" Other.Program
    ! windows reg query "$classes\\sbd.Document" >/dev/null 2>&1 || fail "the file type is left"
    rm -r "$installed"
}

# By the installer's own windows, in a folder of the user's choice, and back.
installer_pages() {
    windows "$setup" &
    wait_for 30 window 'KELD section セットアップ'
    sleep 1
    shoot installer-1-welcome
    xdotool windowactivate --sync "$(head -n 1 "$work/window")" key alt+n
    sleep 2
    shoot installer-2-folder
    xdotool key ctrl+a type --delay 30 'C:\bridge\KELD section'
    sleep 1
    xdotool key alt+i
    wait_for 90 test -f "$prefix/drive_c/bridge/KELD section/uninstall.lst"
    sleep 4
    shoot installer-3-end
    xdotool key space alt+f # without starting the program
    all_ended || fail "the installer does not end"
    installed="$prefix/drive_c/bridge/KELD section"
    [[ -f $installed/sbdstation.exe ]] || fail "not installed where it should be"
    windows "$installed/uninstall.exe" &
    wait_for 30 window 'アンインストール'
    sleep 1
    shoot uninstaller-1
    xdotool windowactivate --sync "$(head -n 1 "$work/window")" key alt+u
    wait_for 60 uninstalled || { shoot uninstaller-failed; fail "the uninstaller did not do its work"; }
    sleep 2
    shoot uninstaller-2
    [[ ! -e $installed ]] || fail "the folder is left"
}

step "files of the archive" unpacked_files
step "DLLs" needed_dlls
step "resources of the programs" resources
step "signatures" signatures
step "manifests of winget" winget_manifests
step "fresh Windows" fresh_prefix
step "programs from the archive" portable_programs
if [[ $quick == no ]]; then
    start_screen
    step "install" silent_install
    step "open by association, refuse while open" association
    step "upgrade" upgrade
    step "move to another folder and back" another_folder
    step "uninstall" uninstall
    step "pages of the installer" installer_pages
    echo "Pictures: $pictures"
fi
summary "steps"
