#!/usr/bin/env bash
# Puts into build/windows-kit/libraries what the programs need besides Qt: DLLs of the compiler, header libraries, GoogleTest,
# zlib and libxlsxwriter, which is made from Debian's source package.
#   packaging/windows/libraries.sh
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
work=$(cd "$here/../.." && pwd)/build/windows-kit
libraries=$work/libraries
versions=$(dpkg-query -W -f '${Package} ${Version}\n' g++-mingw-w64-x86-64-posix googletest nlohmann-json3-dev \
    libtomlplusplus-dev libz-mingw-w64-dev libxlsxwriter-dev)
if [[ -f $libraries/versions && $(<"$libraries/versions") == "$versions" ]]; then
    exit 0
fi
rm -rf "$libraries"
mkdir -p "$libraries"/{bin,include,share/cmake,lib/host/cmake}

for dll in libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll; do
    # The compiler knows the first two by name, the third lies with the system's import libraries.
    file=$(x86_64-w64-mingw32-g++-posix -print-file-name="$dll")
    [[ -f $file ]] || file=/usr/x86_64-w64-mingw32/lib/$dll
    x86_64-w64-mingw32-strip -o "$libraries/bin/$dll" "$file"
done

# Header libraries are the same on every system; only their folder must not bring this system's headers along.
ln -s /usr/include/nlohmann /usr/include/toml++ "$libraries/include/"
cp -r /usr/share/cmake/nlohmann_json "$libraries/share/cmake/"
cp -r "/usr/lib/$(dpkg-architecture -qDEB_HOST_MULTIARCH)/cmake/tomlplusplus" "$libraries/lib/host/cmake/"

# The static zlib: no DLL more for users.
cp /usr/x86_64-w64-mingw32/include/{zlib,zconf}.h "$libraries/include/"
cp /usr/x86_64-w64-mingw32/lib/libz.a "$libraries/lib/"

# Debian's own build takes minizip and MD5 from packages that MinGW has not; the source brings both. Numbers are printed
# by its own function, not by the C library, which asks for the user's decimal point.
xlsxwriter() {
    local source=$work/xlsxwriter.source lists=$work/xlsxwriter.apt apt
    rm -rf "$source" "$lists"
    mkdir -p "$source" "$lists/parts" "$lists/lists/partial" "$lists/archives/partial"
    # The source package, without a change to this machine's list of sources.
    find /etc/apt -name '*.sources' -exec sed -n 's/^Types:.*/Types: deb-src/; p' {} + >"$lists/parts/src.sources"
    sed -n 's/^deb /deb-src /p' /etc/apt/sources.list /etc/apt/sources.list.d/*.list 2>/dev/null \
        >"$lists/parts/src.list" || true
    apt=(-o "Dir::Etc::SourceList=/dev/null" -o "Dir::Etc::SourceParts=$lists/parts" -o "Dir::State::Lists=$lists/lists"
        -o "Dir::Cache::Archives=$lists/archives" -o "APT::Sandbox::User=root" -q)
    apt-get "${apt[@]}" update &&
        (cd "$source" &&
            apt-get "${apt[@]}" source "libxlsxwriter=$(dpkg-query -W -f '${source:Version}' libxlsxwriter-dev)") &&
        cmake -G Ninja -S "$source"/libxlsxwriter-*/ -B "$source/build" -DCMAKE_TOOLCHAIN_FILE="$here/toolchain.cmake" \
            -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX="$libraries" -DCMAKE_INSTALL_LIBDIR=lib \
            -DZLIB_INCLUDE_DIR="$libraries/include" -DZLIB_LIBRARY="$libraries/lib/libz.a" \
            -DBUILD_SHARED_LIBS=OFF -DUSE_SYSTEM_MINIZIP=OFF -DUSE_OPENSSL_MD5=OFF -DUSE_DTOA_LIBRARY=ON &&
        cmake --build "$source/build" --target install &&
        rm -rf "$source" "$lists"
}
xlsxwriter >"$work/xlsxwriter.log" 2>&1 || { tail -n 40 "$work/xlsxwriter.log"; exit 1; }

cmake -G Ninja -S /usr/src/googletest -B "$work/googletest" -DCMAKE_TOOLCHAIN_FILE="$here/toolchain.cmake" \
    -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX="$libraries" >"$work/googletest.log" 2>&1 &&
    cmake --build "$work/googletest" --target install >>"$work/googletest.log" 2>&1 ||
    { tail -n 40 "$work/googletest.log"; exit 1; }
rm -rf "$work/googletest"
echo "$versions" >"$libraries/versions"
