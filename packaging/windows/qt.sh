#!/usr/bin/env bash
# Puts a Qt for Windows into build/windows-kit/qt.
#   packaging/windows/qt.sh              makes it from Debian's source package (70 minutes on two cores)
#   packaging/windows/qt.sh ARCHIVE      unpacks one: a .tar.xz with a folder that holds bin, lib, plugins
#   packaging/windows/qt.sh FOLDER       copies one
# It has to be of the version that this machine's Qt has, whose moc and rcc the build runs.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
work=$(cd "$here/../.." && pwd)/build/windows-kit
given=${1:-}
qt=$work/qt
stamp=$work/qt.stamp

wanted=${given:-Debian source}
[[ -z $given ]] || wanted="$given $(stat -c '%Y %s' "$given")"
if [[ -f $stamp && $(<"$stamp") == "$wanted" ]]; then
    exit 0
fi
rm -rf "$qt" "$stamp"
mkdir -p "$work"

unpack() {
    local unpacked=$work/qt.unpacked config
    rm -rf "$unpacked"
    mkdir "$unpacked"
    tar -C "$unpacked" -xf "$given"
    config=$(find "$unpacked" -path '*/lib/cmake/Qt6/Qt6Config.cmake' | head -n 1)
    [[ -n $config ]] || { echo "$given holds no Qt 6" >&2; return 1; }
    mv "${config%/lib/cmake/Qt6/Qt6Config.cmake}" "$qt"
    rm -rf "$unpacked"
}

make_it() {
    local source=$work/qt.source apt lists
    # The source package, without a change to this machine's list of sources.
    lists=$work/qt.apt
    rm -rf "$source" "$lists"
    mkdir -p "$source" "$lists/parts" "$lists/lists/partial" "$lists/archives/partial"
    find /etc/apt -name '*.sources' -exec sed -n 's/^Types:.*/Types: deb-src/; p' {} + >"$lists/parts/src.sources"
    sed -n 's/^deb /deb-src /p' /etc/apt/sources.list /etc/apt/sources.list.d/*.list 2>/dev/null \
        >"$lists/parts/src.list" || true
    apt=(-o "Dir::Etc::SourceList=/dev/null" -o "Dir::Etc::SourceParts=$lists/parts" -o "Dir::State::Lists=$lists/lists"
        -o "Dir::Cache::Archives=$lists/archives" -o "APT::Sandbox::User=root" -q)
    apt-get "${apt[@]}" update
    (cd "$source" && apt-get "${apt[@]}" source qt6-base)
    # Debian's source has no header for drawing tablets; ICU, OpenGL, D-Bus and databases have no user here.
    cmake -S "$source"/qt6-base-*/ -B "$source/build" -G Ninja \
        -DCMAKE_TOOLCHAIN_FILE="$here/toolchain.cmake" -DCMAKE_INSTALL_PREFIX="$qt" -DCMAKE_BUILD_TYPE=Release \
        -DQT_HOST_PATH=/usr -DQT_HOST_PATH_CMAKE_DIR="/usr/lib/$(dpkg-architecture -qDEB_HOST_MULTIARCH)/cmake" \
        -DQT_QMAKE_TARGET_MKSPEC=win32-g++ -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF -DINPUT_opengl=no \
        -DFEATURE_{sql,opengl,dbus,vulkan,openssl,precompile_header,system_zlib,concurrent,pkg_config,icu,tabletevent}=OFF
    cmake --build "$source/build"
    cmake --install "$source/build" --strip
    rm -rf "$source" "$lists"
}

case $given in
    '') make_it ;;
    *) if [[ -d $given ]]; then cp -r "$given" "$qt"; else unpack; fi ;;
esac
echo "$wanted" >"$stamp"
