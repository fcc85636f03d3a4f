#!/usr/bin/env bash
# Builds Qt for Windows out of the distribution's own sources, with the distribution's mingw-w64:
#
#   tools/build_windows_qt.sh FOLDER
#
# FOLDER gets qt-VERSION-mingw64.tar.xz, and VELMORA_WINDOWS_QT=FOLDER makes the Windows build find
# it. The version is that of the installed host tools, which must be the same. Sources are fetched by
# apt with a source list of its own: the system's lists stay as they are. FOLDER/work keeps the
# sources and objects, so that a run that was ended goes on where it was; it can be removed after. It
# takes half an hour on two idle cores, and an hour on busy ones.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
source "$root/tools/setup.sh"

[[ $# -eq 1 && $1 != -* ]] || { sed -n '2,/^set/s/^# \{0,1\}//p' "${BASH_SOURCE[0]}" >&2; exit 2; }

mkdir -p "$1/work"
folder=$(cd "$1" && pwd)
work=$folder/work
began=$SECONDS

install_packages build-essential cmake ninja-build ccache pkg-config dpkg-dev xz-utils \
    qt6-base-dev qt6-base-private-dev gcc-mingw-w64-x86-64-posix g++-mingw-w64-x86-64-posix

package_version=$(dpkg-query -W -f '${source:Version}' qt6-base-dev)
version=${package_version%%[+-]*}
name=qt-$version-mingw64

# The newest source of the version, from the mirror and suite that the system uses.
fetch_sources() {
    [[ ! -f $work/source/CMakeLists.txt ]] || return 0
    local suite
    suite=$(. /etc/os-release && printf '%s' "$VERSION_CODENAME")
    local mirror=${VELMORA_DEBIAN_MIRROR:-http://deb.debian.org/debian}
    # A run that was ended may have unpacked a part.
    rm -rf "$work/fetched"
    mkdir -p "$work/apt/lists/partial" "$work/apt/cache/archives/partial" "$work/fetched"
    local key='[signed-by=/usr/share/keyrings/debian-archive-keyring.gpg]'
    {
        printf 'deb-src %s %s %s main\n' "$key" "$mirror" "$suite"
        printf 'deb-src %s %s %s-updates main\n' "$key" "$mirror" "$suite"
        printf 'deb-src %s %s-security %s-security main\n' "$key" "$mirror" "$suite"
    } >"$work/apt/sources.list"
    local own=(-o Dir::Etc::SourceList="$work/apt/sources.list" -o Dir::Etc::SourceParts=/dev/null
        -o Dir::State::Lists="$work/apt/lists" -o Dir::Cache="$work/apt/cache"
        -o APT::Sandbox::User=)
    say "Fetching the sources of qt6-base $package_version"
    (
        cd "$work/fetched"
        apt-get -qq "${own[@]}" update
        apt-get -qq "${own[@]}" source "qt6-base=$package_version"
    ) </dev/null >&2
    mv "$work"/fetched/qt6-base-*/ "$work/source"
}

configure() {
    local feature features=()
    for feature in sql dbus printsupport vulkan xml concurrent tabletevent glib zstd icu \
        system_{zlib,png,jpeg,freetype,harfbuzz,pcre2,doubleconversion}; do
        features+=("-DFEATURE_$feature=OFF")
    done
    cmake -G Ninja -S "$work/source" -B "$work/build" \
        -DCMAKE_TOOLCHAIN_FILE="$root/cmake/mingw-w64.cmake" \
        -DCMAKE_C_COMPILER_LAUNCHER=ccache -DCMAKE_CXX_COMPILER_LAUNCHER=ccache \
        -DQT_HOST_PATH=/usr -DQT_HOST_PATH_CMAKE_DIR=/usr/lib/x86_64-linux-gnu/cmake \
        -DCMAKE_INSTALL_PREFIX="$work/$name" -DCMAKE_BUILD_TYPE=Release -DBUILD_SHARED_LIBS=ON \
        -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF -DINPUT_opengl=no "${features[@]}"
}

# With the licences, which whoever passes the libraries on has to add.
pack() {
    local license
    mkdir -p "$work/$name/licenses"
    for license in LGPL-3.0-only GPL-3.0-only; do
        cp "$work/source/LICENSES/$license.txt" "$work/$name/licenses/"
    done
    tar -C "$work" -cJf "$folder/$name.tar.xz.part" "$name"
    mv "$folder/$name.tar.xz.part" "$folder/$name.tar.xz"
}

fetch_sources
configure </dev/null >&2
cmake --build "$work/build" </dev/null >&2
rm -rf "${work:?}/$name"
cmake --install "$work/build" --strip </dev/null >&2
pack
say "$folder/$name.tar.xz made in $(((SECONDS - began) / 60)) min"
