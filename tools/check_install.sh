#!/usr/bin/env bash
# Builds the library as a user does who has a compiler, CMake and Ninja alone (-DBUILD_TESTING=OFF),
# with the static library as well, installs it, and builds and runs tests/install against it: by
# find_package with the shared and with the static library, and by pkg-config after the installed
# tree has been moved. Everything stays under build/install.
set -euo pipefail
cd "$(dirname "$0")/.."
top=$PWD/build/install
rm -rf "$top/first" "$top/moved" "$top/consumer" "$top/by-pkg-config"

cmake -S . -B "$top/build" -G Ninja -DBUILD_TESTING=OFF -DQVCOMMON_BUILD_STATIC=ON \
  -DCMAKE_INSTALL_PREFIX="$top/first" >/dev/null
cmake --build "$top/build"
cmake --install "$top/build" >/dev/null
tools/check_symbols.sh "$(ls "$top"/first/lib*/libqvcommon940r.so)"

mv "$top/first" "$top/moved"
cmake -S tests/install -B "$top/consumer" -G Ninja -DCMAKE_PREFIX_PATH="$top/moved" >/dev/null
cmake --build "$top/consumer"
"$top/consumer/consumer_shared"
"$top/consumer/consumer_static"

libdir=$(dirname "$(ls "$top"/moved/lib*/libqvcommon940r.so)")
export PKG_CONFIG_PATH="$libdir/pkgconfig"
# --define-prefix is not needed: the file knows its own place.
${CXX:-g++} -std=c++17 tests/install/*.cpp -o "$top/by-pkg-config" \
  $(pkg-config --cflags --libs qvcommon940r) -Wl,-rpath,"$libdir"
"$top/by-pkg-config"
echo "Installed and consumed: find_package (shared, static) and pkg-config, headers alone and all"
