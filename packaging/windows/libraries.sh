#!/usr/bin/env bash
# Puts into build/windows-kit/libraries what the programs need besides Qt: DLLs of the compiler, header libraries, GoogleTest.
#   packaging/windows/libraries.sh
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
work=$(cd "$here/../.." && pwd)/build/windows-kit
libraries=$work/libraries
versions=$(dpkg-query -W -f '${Package} ${Version}\n' g++-mingw-w64-x86-64-posix googletest nlohmann-json3-dev \
    libtomlplusplus-dev)
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

cmake -G Ninja -S /usr/src/googletest -B "$work/googletest" -DCMAKE_TOOLCHAIN_FILE="$here/toolchain.cmake" \
    -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX="$libraries" >"$work/googletest.log" 2>&1 &&
    cmake --build "$work/googletest" --target install >>"$work/googletest.log" 2>&1 ||
    { tail -n 40 "$work/googletest.log"; exit 1; }
rm -rf "$work/googletest"
echo "$versions" >"$libraries/versions"
