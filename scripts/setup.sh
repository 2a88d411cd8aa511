#!/usr/bin/env bash
# Installs the Debian packages that are missing.
#   scripts/setup.sh app | dev | ci      what the program, the tests, the whole check need
#   scripts/setup.sh debian              what packaging/debian needs
#   scripts/setup.sh windows             what packaging/windows needs, to build and to run under Wine
#   ... --missing                        installs nothing, prints what is missing
set -euo pipefail

packages=(g++ cmake ninja-build ccache
    qt6-base-dev libgl-dev qt6-qpa-plugins qt6-translations-l10n librsvg2-bin nlohmann-json3-dev libtomlplusplus-dev
    libxlsxwriter-dev zlib1g-dev fonts-ipafont-gothic)
if [[ -n ${WAYLAND_DISPLAY:-} && -z ${DISPLAY:-} ]]; then
    packages+=(qt6-wayland)
fi
case ${1:-} in
    app) ;;
    debian)
        packages+=(dpkg-dev file lintian appstream desktop-file-utils shared-mime-info libxml2-utils debootstrap)
        ;;
    windows)
        packages+=(g++-mingw-w64-x86-64-posix libz-mingw-w64-dev qt6-base-dev-tools dpkg-dev googletest icoutils unzip nsis locales
            wine64 xvfb xauth xdotool openbox x11-utils imagemagick python3)
        ;;
    dev | ci)
        packages+=(libgtest-dev libgmock-dev libbenchmark-dev clang-format-14 mold)
        if [[ $1 == ci ]]; then
            packages+=(clang-14 clang-tidy-14 libclang-rt-14-dev python3 xvfb openbox xdotool x11-utils imagemagick)
        fi
        ;;
    *)
        echo "usage: scripts/setup.sh app | dev | ci | debian | windows" >&2
        exit 2
        ;;
esac

if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
    echo "No apt-get here. Needed, by the names that Debian 12 gives them: ${packages[*]}" >&2
    exit 0
fi

missing=()
installed=$(dpkg-query -W -f '${db:Status-Status} ${Package}\n' "${packages[@]}" 2>/dev/null || true)
for package in "${packages[@]}"; do
    if ! grep -qxF "installed $package" <<<"$installed"; then
        missing+=("$package")
    fi
done
[[ ${#missing[@]} -gt 0 ]] || exit 0
if [[ ${2:-} == --missing ]]; then
    echo "${missing[*]}"
    exit 0
fi

as_root=()
if [[ $(id -u) -ne 0 ]]; then
    if ! command -v sudo >/dev/null; then
        echo "As root, install: apt-get install ${missing[*]}" >&2
        exit 1
    fi
    as_root=(sudo)
fi
echo "Installing: ${missing[*]}"
"${as_root[@]}" apt-get update -qq
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
