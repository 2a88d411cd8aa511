#!/usr/bin/env bash
# Runs inside a fresh Debian (check.sh starts it there): installs the package, uses the program as an ordinary user,
# removes it. Pictures go to /check/pictures.
set -euo pipefail
package=$1
examples=/usr/share/doc/sbdstation/examples
pictures=/check/pictures
export DEBIAN_FRONTEND=noninteractive

say() { echo "-- $*"; }
fail() {
    echo "FAILED: $*" >&2
    exit 1
}
as_user() {
    runuser -u engineer -- env HOME=/home/engineer XDG_RUNTIME_DIR=/run/engineer LC_ALL=C.UTF-8 "$@"
}

say "what a desktop has anyway"
apt-get update -qq
apt-get install -y -qq --no-install-recommends shared-mime-info desktop-file-utils >/check/desktop.log 2>&1 || {
    tail -n 30 /check/desktop.log
    fail "apt-get does not work here"
}
useradd --create-home engineer
install -d -m 0700 -o engineer /run/engineer
install -d -o engineer "$pictures"
find / -xdev \( -path /proc -o -path /check -o -path /var -o -path /run \) -prune -o -print | sort >/check/before.txt

say "install, with nothing but what it depends on"
apt-get install -y -qq --no-install-recommends "$package" >/check/install.log 2>&1 || {
    tail -n 30 /check/install.log
    fail "the package cannot be installed"
}
[[ -z $(dpkg --audit) ]] || fail "dpkg --audit has something to say"
dpkg --verify sbdstation | { ! grep .; } || fail "files differ from what was packed"
grep -qxF 'application/x-sbd-project:*.sbd' /usr/share/mime/globs || fail "*.sbd has no file type"
grep -qxF 'application/x-sbd-project=sbdstation.desktop;' /usr/share/applications/mimeinfo.cache ||
    fail "no program opens the file type"
# A screen's plug-in is loaded when there is one; its libraries have to be there.
libraries=$(ldd /usr/bin/sbdstation /usr/bin/sbdtool /usr/bin/sbdpage /usr/lib/*/qt6/plugins/platforms/libqxcb.so)
! grep -F 'not found' <<<"$libraries" || fail "libraries are missing"

say "sbdstation --version, --help"
version=$(dpkg-query -W -f '${Version}' sbdstation)
[[ $(as_user sbdstation --version) == "sbdstation $version" ]] || fail "--version tells another version than $version"
as_user sbdstation --help | grep -q -e --screenshot || fail "--help"

say "sbdtool and sbdpage on the examples"
for example in plate4 box2 single1; do
    project=$examples/$example/$example.sbd
    as_user sbdtool rewrite "$project" "/home/engineer/$example.sbd"
    cmp "$project" "/home/engineer/$example.sbd" || fail "$example is not written as it was read"
    as_user sbdtool dump "$project" | grep -q '"' || fail "sbdtool dump $example"
done
as_user sbdtool results "$examples/plate4/plate4.sbd" >/check/results.json
[[ $(wc -c </check/results.json) -gt 10000 ]] || fail "the results of the example are not read"
as_user sbdpage --project "$examples/plate4/plate4.sbd" --png "$pictures/page-322.png" 322
as_user sbdpage figure --project "$examples/box2/box2.sbd" --png "$pictures/figure-box2.png"

say "the window"
as_user sbdstation --screenshot "$pictures/window.png" --block 322 --cell 3,3 "$examples/plate4/plate4.sbd"
as_user sbdstation --screenshot "$pictures/window-box2.png" --block 311 "$examples/box2/box2.sbd"
for picture in "$pictures"/*.png; do
    [[ $(wc -c <"$picture") -gt 2000 ]] || fail "$picture is empty"
done
# Not for a picture: the program comes up, stays, and ends when it is told to.
code=0
as_user env QT_QPA_PLATFORM=offscreen timeout 5 sbdstation /home/engineer/plate4.sbd 2>/check/window.log || code=$?
[[ $code -eq 124 ]] || { cat /check/window.log; fail "the program ended by itself, code $code"; }
! grep -vxF 'This plugin does not support propagateSizeHints()' /check/window.log || fail "the program complains"

say "remove"
dpkg --listfiles sbdstation | sort >/check/files.txt
apt-get purge -y -qq sbdstation >/dev/null 2>&1
left=$(grep -E 'sbdstation|sbdtool|sbdpage|x-sbd-project' /check/files.txt | while read -r file; do
    [[ ! -e $file && ! -L $file ]] || echo "$file"
done)
[[ -z $left ]] || fail "left behind: $left"
! grep -rl x-sbd-project /usr/share/mime /usr/share/applications || fail "the file type is left behind"
# With what came along gone as well, nothing names the program but the user's own files.
apt-get autoremove --purge -y -qq >/dev/null 2>&1
find / -xdev \( -path /proc -o -path /check -o -path /var -o -path /run \) -prune -o -print | sort >/check/after.txt
comm -13 /check/before.txt /check/after.txt >/check/left.txt
! grep -iE 'sbd|keld' /check/left.txt | grep -v '^/home/engineer/' || fail "left behind"
say "$(wc -l </check/files.txt) files and folders came and went; $(wc -l </check/left.txt) of others and of users are left"
