# Makes the packages for debian. To be sourced by make_packages.sh.

# The time of the last change: the same sources give the same package.
debian_date() {
    git -C "$root" log -1 --format=%ct 2>/dev/null || stat -c %Y "$root/CHANGELOG.md"
}

make_debian_packages() {
    install_packages "${build_packages[@]}" dpkg-dev fakeroot
    build_preset release velmora velmora-console
    local work=$packages/work
    rm -rf "$work" "$packages"/velmora_*.deb
    SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(debian_date)} \
        cpack --config "$root/build/release/CPackConfig.cmake" -G DEB -B "$work" >&2
    mv "$work"/velmora_*.deb "$packages"
    rm -rf "$work"
}
