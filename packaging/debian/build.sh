#!/usr/bin/env bash
# Makes the Debian package of the program.
#   packaging/debian/build.sh [output folder]     by default build/packages; prints the path of the package
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
build=$root/build/debian
output=${1:-$root/build/packages}
mkdir -p "$output"
output=$(cd "$output" && pwd)

"$root/scripts/setup.sh" debian
export LC_ALL=C.UTF-8 # names of files in the package
export CCACHE_NOHASHDIR=1

# As Debian compiles its own programs; CPack takes the symbols away, so none are made.
cd "$root"
export DEB_BUILD_MAINT_OPTIONS=hardening=+all DEB_CXXFLAGS_MAINT_STRIP=-g
flags="$(dpkg-buildflags --get CXXFLAGS) $(dpkg-buildflags --get CPPFLAGS)"
cmake --preset release -B "$build" -DCMAKE_INSTALL_PREFIX=/usr "-DCMAKE_CXX_FLAGS=$flags" \
    "-DCMAKE_EXE_LINKER_FLAGS=$(dpkg-buildflags --get LDFLAGS)" >"$build.configure.log" || {
    cat "$build.configure.log"
    exit 1
}

version=$(sed -n 's/^CMAKE_PROJECT_VERSION:[A-Z]*=//p' "$build/CMakeCache.txt")
if [[ $(dpkg-parsechangelog -l packaging/debian/changelog -S Version) != "$version" ]]; then
    echo "packaging/debian/changelog begins with another version than CMakeLists.txt, $version" >&2
    exit 1
fi

cmake --build "$build" --target sbdstation sbdtool sbdpage desktop_files debian_files
rm -rf "$build/package"
cpack -G DEB --config "$build/CPackConfig.cmake" -B "$build/package" >"$build.pack.log" 2>&1 || {
    cat "$build.pack.log"
    exit 1
}
package=$(echo "$build"/package/*.deb)
mv "$package" "$output/"
echo "$output/${package##*/}"
