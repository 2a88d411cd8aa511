#!/usr/bin/env bash
# Checks a Debian package of the program.
#   packaging/debian/check.sh --quick FILE.deb    what stands in it, without installing it
#   packaging/debian/check.sh FILE.deb            then installs it in a fresh Debian, starts it there, removes it;
#                                                 needs root
# Pictures of the installed program are left in build/debian-check/pictures. The fresh Debian is kept packed in
# build/debian-check/base-*.tar.gz and the packages that were fetched in build/debian-check/archives; remove them to
# begin from nothing.
set -euo pipefail

quick=no
if [[ ${1:-} == --quick ]]; then
    quick=yes
    shift
fi
if [[ $# -ne 1 || ! -f $1 ]]; then
    echo "usage: packaging/debian/check.sh [--quick] FILE.deb" >&2
    exit 2
fi
if [[ $quick == no && $(id -u) -ne 0 ]]; then
    exec sudo "$0" "$@"
fi
package=$(realpath "$1")
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
source scripts/steps.sh
export LC_ALL=C.UTF-8

kept=$PWD/build/debian-check
mkdir -p "$kept/archives"
work=$(mktemp -d "$kept/run-XXXXXX")
# Nothing is mounted but in name spaces that end with their processes.
trap 'rm -rf --one-file-system "$work"' EXIT
trap 'exit 130' INT
trap 'exit 143' TERM HUP
files=$work/files
export XDG_RUNTIME_DIR=$work/run # of the programs that are tried
mkdir -m 0700 "$XDG_RUNTIME_DIR"

control_fields() {
    dpkg-deb --info "$package" >/dev/null
    local depends needed others
    depends=" $(dpkg-deb --field "$package" Depends), "
    for needed in fonts-ipafont-gothic libqt6widgets6 libqt6gui6 libqt6network6 libqt6printsupport6 libc6; do
        [[ $depends == *" $needed "* || $depends == *" $needed, "* ]] || { echo "Depends lacks $needed"; return 1; }
    done
    depends=" $(dpkg-deb --field "$package" Suggests), "
    for needed in qt6-wayland fcitx5-frontend-qt6 qt6-qpa-plugins; do
        [[ $depends == *" $needed, "* ]] || { echo "Suggests lacks $needed"; return 1; }
    done
    others=$(dpkg-deb --ctrl-tarfile "$package" | tar --list | grep -vxE '\./?|\./(control|md5sums)' || true)
    [[ -z $others ]] || { echo "beside control and md5sums: $others"; return 1; }
    dpkg-deb --show --showformat '${Package} ${Version} ${Architecture}, ${Installed-Size} kB\n' "$package"
}

unpacked_files() {
    local file missing=0
    dpkg-deb --extract "$package" "$files"
    dpkg-deb --control "$package" "$work/control"
    (cd "$files" && md5sum --check --quiet "$work/control/md5sums")
    for file in bin/{sbdstation,sbdtool,sbdpage} applications/sbdstation.desktop mime/packages/sbdstation-mime.xml \
        metainfo/org.example.sbdstation.metainfo.xml \
        man/man1/{sbdstation,sbdtool,sbdpage}.1.gz man/ja/man1/sbdstation.1.gz \
        icons/hicolor/{scalable/apps/sbdstation.svg,48x48/apps/sbdstation.png} \
        icons/hicolor/{scalable/mimetypes/application-x-sbd-project.svg,48x48/mimetypes/application-x-sbd-project.png} \
        doc/sbdstation/{copyright,changelog.gz,CHANGELOG.md,deployment.md} \
        doc/sbdstation/examples/{plate4/plate4,box2/box2,single1/single1}.{sbd,abd}; do
        [[ $file == bin/* ]] || file=share/$file
        [[ -s $files/usr/$file ]] || { echo "missing: /usr/$file"; missing=1; }
    done
    # What the about box leads to.
    grep -qF LGPL "$files/usr/share/doc/sbdstation/copyright" || { echo "the copyright file lacks Qt"; missing=1; }
    # Every file of the examples is packed; the README tells another way to start them.
    diff --recursive --brief --exclude=README.md examples "$files/usr/share/doc/sbdstation/examples"
    return "$missing"
}

desktop_entry() {
    desktop-file-validate "$files/usr/share/applications/sbdstation.desktop"
    appstreamcli validate --no-net --pedantic "$files"/usr/share/metainfo/*.xml
    appstreamcli validate-tree --no-net "$files"
    local released
    released=$(xmllint --xpath 'string(//release[1]/@version)' "$files"/usr/share/metainfo/*.xml)
    [[ $released == $(dpkg-deb --field "$package" Version) ]] || { echo "metainfo tells of $released"; return 1; }
}

file_type() {
    mkdir -p "$work/mime/packages"
    cp "$files/usr/share/mime/packages/sbdstation-mime.xml" /usr/share/mime/packages/freedesktop.org.xml \
        "$work/mime/packages/"
    xmllint --noout "$work/mime/packages/sbdstation-mime.xml"
    XDG_DATA_DIRS=$work update-mime-database "$work/mime"
    [[ $(grep ':\*\.sbd$' "$work/mime/globs2") == '50:application/x-sbd-project:*.sbd' ]]
    [[ -f $work/mime/application/x-sbd-project.xml ]]
    grep -q '^MimeType=.*application/x-sbd-project;' "$files/usr/share/applications/sbdstation.desktop"
}

# What --help tells stands in the manual page.
manual_pages() {
    local program word failed=0
    for program in sbdstation sbdtool sbdpage; do
        MANROFFSEQ='' MANWIDTH=100 man --local-file "$files/usr/share/man/man1/$program.1.gz" >"$work/$program.txt"
    done
    MANROFFSEQ='' MANWIDTH=100 man --local-file "$files/usr/share/man/ja/man1/sbdstation.1.gz" \
        >"$work/sbdstation.ja.txt"
    has() {
        grep -qE -e "(^|[^[:alnum:]-])$2($|[^[:alnum:]-])" "$work/$1.txt" || { echo "manual of $1: no $2"; failed=1; }
    }
    for word in $("$files/usr/bin/sbdstation" --help | grep -oE -e '--[a-z-]+'); do
        has sbdstation "$word"
        has sbdstation.ja "$word"
    done
    for word in $("$files/usr/bin/sbdtool" --help | sed -n 's/^  \([a-z-]*\) \?.*/\1/p') \
        $("$files/usr/bin/sbdtool" --help | grep '^  ' | grep -oE -e '--[a-z-]+'); do
        has sbdtool "$word"
    done
    for word in $(for command in '' figure diagram book; do "$files/usr/bin/sbdpage" $command --help; done |
        grep -oE -e '--[a-z-]+' | sort -u); do
        has sbdpage "$word"
    done
    return "$failed"
}

policy() {
    local root=()
    [[ $(id -u) -ne 0 ]] || root=(--allow-root)
    lintian "${root[@]}" --profile debian --fail-on error,warning "$package"
}

codename=$(. /etc/os-release && echo "${VERSION_CODENAME:-bookworm}")
base=$kept/base-$codename-$(dpkg --print-architecture).tar.gz

# The mirrors of this machine, for Debian's own packages.
mirrors() {
    apt-get indextargets --format '$(ORIGIN) $(REPO_URI) $(RELEASE) $(COMPONENT)' 'Created-By: Packages' |
        sed -n "s/^Debian \([^ ]* ${codename}[^ ]* main\)\$/deb \1/p" | sort -u
}

fresh_debian() {
    local mirror
    if [[ ! -f $base ]]; then
        mirror=$(mirrors | sed -n "s/^deb \([^ ]*\) $codename main\$/\1/p" | head -n 1)
        debootstrap --variant=minbase "$codename" "$work/new" "${mirror:-http://deb.debian.org/debian}" \
            >"$kept/debootstrap.log" 2>&1 || { tail -n 20 "$kept/debootstrap.log"; return 1; }
        rm -f "$work"/new/var/cache/apt/archives/*.deb
        tar --create --gzip --file "$base.part" --directory "$work/new" .
        mv "$base.part" "$base"
        rm -rf --one-file-system "$work/new"
    fi
    mkdir "$work/root"
    tar --extract --file "$base" --directory "$work/root"
    mirrors >"$work/root/etc/apt/sources.list"
    echo force-unsafe-io >"$work/root/etc/dpkg/dpkg.cfg.d/no-wait-for-the-disk"
    cp /etc/resolv.conf "$work/root/etc/resolv.conf"
    mkdir "$work/root/check"
    cp packaging/debian/check-installed.sh "$package" "$work/root/check/"
    find "$kept/archives" -name '*.deb' -exec cp --link -t "$work/root/var/cache/apt/archives" {} +
    cat "$work/root/etc/apt/sources.list"
}

installed_program() {
    local code=0
    rm -rf "$kept/pictures"
    unshare --mount --pid --fork --kill-child --root "$work/root" --mount-proc \
        env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LC_ALL=C.UTF-8 ${http_proxy:+http_proxy="$http_proxy"} \
        bash /check/check-installed.sh "/check/${package##*/}" || code=$?
    find "$work/root/var/cache/apt/archives" -name '*.deb' -exec cp --link --no-clobber -t "$kept/archives" {} +
    if [[ -d $work/root/check/pictures ]]; then
        cp -r "$work/root/check/pictures" "$kept/pictures"
        ls "$kept/pictures"/*
    fi
    return "$code"
}

step "packages" scripts/setup.sh debian
step "control fields" control_fields
step "files, as packed" unpacked_files
step "desktop entry and metainfo" desktop_entry
step "file type" file_type
step "manual pages against --help" manual_pages
step "lintian" policy
if [[ $quick == no ]]; then
    step "a fresh Debian ($codename)" fresh_debian
    step "install, start, remove there" installed_program
fi
summary "steps"
