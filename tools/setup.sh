# Shell functions that ./run and ./test share: the packages they need, and building a preset.
# To be sourced, with `root` set to the project's folder. All messages go to standard error.

# A fresh checkout finds what another one on this machine has compiled.
export CCACHE_BASEDIR=$root
export CCACHE_NOHASHDIR=1

# What building takes.
build_packages=(build-essential cmake ninja-build ccache pkg-config nlohmann-json3-dev zlib1g-dev)

# What the tests take besides: libraries, the cross compiler, Wine, and tools that make file
# systems to test on.
test_packages=(googletest libfuse3-dev fuse3 libz-mingw-w64-dev python3
    gcc-mingw-w64-x86-64-posix g++-mingw-w64-x86-64-posix wine wine64 xvfb e2fsprogs mount)

say() { printf '%s\n' "$*" >&2; }

# Prints those of the packages that aren't installed.
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

# Installs what is missing of the packages; touches nothing and needs no network when nothing is.
install_packages() {
    if ! command -v dpkg-query >/dev/null; then
        say "This is no Debian system; going on as if these were installed: $*"
        return 0
    fi
    local missing
    mapfile -t missing < <(missing_packages "$@")
    [[ ${#missing[@]} -gt 0 ]] || return 0
    say "Installing packages: ${missing[*]}"
    if [[ $(id -u) -ne 0 ]] && ! command -v sudo >/dev/null; then
        say "Neither root nor sudo here: please install them and start again."
        return 1
    fi
    local apt=(env DEBIAN_FRONTEND=noninteractive apt-get -qq -o DPkg::Lock::Timeout=300)
    as_root "${apt[@]}" update </dev/null >&2 &&
        as_root "${apt[@]}" -o Dpkg::Use-Pty=0 install -y --no-install-recommends \
            "${missing[@]}" </dev/null >&2
}

# Configures a preset when that was never done, then builds the targets (all without any).
# Says nothing when there is nothing to do.
build_preset() {
    local preset=$1
    shift
    if [[ ! -f $root/build/$preset/build.ninja ]]; then
        say "Configuring $preset"
        (cd "$root" && cmake --preset "$preset") </dev/null >&2 || return 1
    fi
    cmake --build "$root/build/$preset" ${1:+--target "$@"} </dev/null 2>&1 |
        sed -e '/^ninja: no work to do/d' -e '/Re-checking globbed directories/d' >&2
}
