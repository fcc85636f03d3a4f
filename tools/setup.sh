# Shell functions that ./run and ./test share: the packages they need, and building a preset.
# To be sourced, with `root` set to the project's folder. All messages go to standard error.

# A fresh checkout reuses what another one on this machine has compiled.
export CCACHE_BASEDIR=$root
export CCACHE_NOHASHDIR=1

# What a build needs.
build_packages=(build-essential cmake ninja-build ccache pkg-config nlohmann-json3-dev zlib1g-dev
    libcurl4-openssl-dev libsystemd-dev libblkid-dev libedit-dev qt6-base-dev)

# What the tests need besides: libraries, the cross compiler, Wine, tools that make file systems to
# test on, tools that show windows, operate them and take screenshots, and one that runs the script of
# the help page.
test_packages=(googletest libssl-dev libfuse3-dev fuse3 libz-mingw-w64-dev python3
    gcc-mingw-w64-x86-64-posix g++-mingw-w64-x86-64-posix wine wine64 e2fsprogs mount
    dosfstools ntfs-3g exfatprogs exfat-fuse fusefat mtools btrfs-progs sshfs openssh-sftp-server
    xvfb openbox trayer xdotool imagemagick mujs python3-aiosmtpd python3-prometheus-client s-nail openssl systemd-journal-remote
    dbus python3-dbus python3-gi at-spi2-core)

# What makes the packages that users install, and checks them.
package_packages=(nsis dpkg-dev fakeroot lintian desktop-file-utils appstream man-db)

# What checks the sources and searches with libFuzzer.
clang_packages=(clang clang-format clang-tidy libclang-rt-dev)

say() { printf '%s\n' "$*" >&2; }

# Prints the packages that aren't installed.
missing_packages() {
    local installed package
    installed=$(dpkg-query -W -f '${db:Status-Abbrev}|${Package}\n' "$@" 2>/dev/null |
        sed -n 's/^.i *|//p') || true
    for package in "$@"; do
        grep -qxF -- "$package" <<<"$installed" || printf '%s\n' "$package"
    done
}

as_root() {
    if [[ $(id -u) -eq 0 ]]; then
        "$@"
    else
        sudo "$@"
    fi
}

# Whether packages were installed: presets are configured again then, as there is more to find.
new_packages=no

# Installs the missing packages. When none is missing, it changes nothing and needs no network.
install_packages() {
    if ! command -v dpkg-query >/dev/null; then
        say "This is no Debian system; going on as if these were installed: $*"
        return 0
    fi
    local missing
    mapfile -t missing < <(missing_packages "$@")
    [[ ${#missing[@]} -gt 0 ]] || return 0
    say "Installing packages: ${missing[*]}"
    new_packages=yes
    if [[ $(id -u) -ne 0 ]] && ! command -v sudo >/dev/null; then
        say "Neither root nor sudo here: please install them and start again."
        return 1
    fi
    local apt=(env DEBIAN_FRONTEND=noninteractive apt-get -qq -o DPkg::Lock::Timeout=300)
    as_root "${apt[@]}" update </dev/null >&2 &&
        as_root "${apt[@]}" -o Dpkg::Use-Pty=0 install -y --no-install-recommends \
            "${missing[@]}" </dev/null >&2
}

# The folders with libraries for Windows that the environment names.
windows_libraries=(VELMORA_WINDOWS_QT VELMORA_WINDOWS_CURL)

# Whether one of them differs from what the preset was configured with.
other_windows_libraries() {
    local preset=$1 variable
    [[ $preset == windows ]] || return 1
    for variable in "${windows_libraries[@]}"; do
        if [[ -n ${!variable:-} ]] &&
            ! grep -qxF "$variable:PATH=${!variable}" "$root/build/$preset/CMakeCache.txt"; then
            return 0
        fi
    done
    return 1
}

# Configures a preset for the first time, or again when there is something new to find or the presets have changed.
configure_preset() {
    local preset=$1 options=() variable
    if [[ -f $root/build/$preset/build.ninja && $new_packages == no &&
        $root/build/$preset/CMakeCache.txt -nt $root/CMakePresets.json ]] &&
        ! other_windows_libraries "$preset"; then
        return 0
    fi
    say "Configuring $preset"
    if [[ $preset == windows ]]; then
        for variable in "${windows_libraries[@]}"; do
            [[ -z ${!variable:-} ]] || options+=("-D$variable:PATH=${!variable}")
        done
    fi
    (cd "$root" && cmake --preset "$preset" "${options[@]}") </dev/null >&2
}

# Whether a configured preset knows a target.
has_target() { grep -qE "^build $2: phony" "$root/build/$1/build.ninja"; }

# Configures a preset if necessary, then builds the targets, or all when none is given. Prints
# nothing when there is nothing to do.
build_preset() {
    local preset=$1
    shift
    configure_preset "$preset" || return 1
    cmake --build "$root/build/$preset" ${1:+--target "$@"} </dev/null 2>&1 |
        sed -u -e '/^ninja: no work to do/d' -e '/Re-checking globbed directories/d' >&2
}
