# Makes the packages for windows. To be sourced by make_packages.sh, with `root` and `packages` set.

windows_packages=(build-essential cmake ninja-build ccache pkg-config nlohmann-json3-dev qt6-base-dev
    g++-mingw-w64-x86-64-posix libz-mingw-w64-dev nsis imagemagick)

make_windows_packages() {
    install_packages "${windows_packages[@]}"
    build_preset windows velmora-console velmora-close
    if ! has_target windows velmora; then
        say "The packages need the window: set VELMORA_WINDOWS_QT to a folder with Qt for Windows."
        return 1
    fi
    build_preset windows velmora
    local version name
    version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' "$root/build/windows/CMakeCache.txt")
    name=velmora-$version-win64
    stage_windows_files
    # Those of another version, too: whoever takes a package takes this one.
    rm -f "$packages"/velmora-*-win64.*
    make_windows_zip "$name" "$version"
    make_windows_installer "$name" "$version"
}

# What both contain, in the folder `velmora` of the stage.
stage_windows_files() {
    local stage=$packages/windows
    rm -rf "$stage"
    cmake --install "$root/build/windows" --prefix "$stage" >"$packages/windows-install.log"
    find "$stage" \( -name '*.exe' -o -name '*.dll' \) -exec x86_64-w64-mingw32-strip {} +
}

# Without the marker of an installation: the settings lie beside the programs.
make_windows_zip() {
    local folder=$packages/windows/velmora-$2
    mv "$packages/windows/velmora" "$folder"
    (cd "$packages/windows" && cmake -E tar cf "$packages/$1.zip" --format=zip "velmora-$2")
    mv "$folder" "$packages/windows/velmora"
    say "$packages/$1.zip"
}

make_windows_installer() {
    local parts=$packages/windows/installer
    mkdir -p "$parts"
    x86_64-w64-mingw32-strip -o "$parts/velmora-close.exe" "$root/build/windows/src/velmora-close.exe"
    list_windows_files "$packages/windows/velmora" "$parts"
    draw_windows_pictures "$parts"
    makensis -V2 -WX -NOCD -INPUTCHARSET UTF8 "-DVERSION=$2" "-DOUTPUT=$packages/$1.exe" \
        "-DPARTS=$parts" "-DFILES=$packages/windows/velmora" "-DROOT=$root" \
        "-DSIZE=$(du -sk --apparent-size "$packages/windows/velmora" | cut -f1)" \
        "$root/tools/packages/windows/velmora.nsi" >&2
    say "$packages/$1.exe"
}

# The files below $1, but not the settings, which are handled by hand: lay.nsh and remove.nsh in the
# folder $2 lay and remove each of them by its name, velmora.installed has the list of the names.
# The installed folder may be one that holds files of somebody else.
list_windows_files() {
    local folder file
    : >"$2/lay.nsh"
    : >"$2/remove.nsh"
    printf 'velmora.installed\r\n' >"$2/velmora.installed"
    while IFS= read -r folder; do
        printf 'SetOutPath "$INSTDIR%s"\n' "${folder:+\\${folder//\//\\}}" >>"$2/lay.nsh"
        while IFS= read -r file; do
            printf 'File "%s"\n' "$1${folder:+/$folder}/$file" >>"$2/lay.nsh"
            file=${folder:+${folder//\//\\}\\}$file
            printf 'Delete "$INSTDIR\\%s"\n' "$file" >>"$2/remove.nsh"
            printf '%s\r\n' "$file" >>"$2/velmora.installed"
        done < <(find "$1${folder:+/$folder}" -maxdepth 1 -type f ! -name set.dat -printf '%f\n' | sort)
    done < <(find "$1" -type d -printf '%P\n' | sort)
    # The inner ones first.
    find "$1" -mindepth 1 -type d -printf '%P\n' | sort -r | sed 's|/|\\|g; s|.*|RMDir "$INSTDIR\\&"|' \
        >>"$2/remove.nsh"
}

# The pictures of the installer's pages, out of the program's icon.
draw_windows_pictures() {
    local icons=$root/dist/icons/png
    convert -size 164x314 'gradient:#f4f8fc-#c9dcee' "$icons/velmora-128.png" -gravity north \
        -geometry +0+56 -composite -type TrueColor "BMP3:$1/welcome.bmp"
    convert -size 150x57 xc:white "$icons/velmora-48.png" -gravity east -geometry +6+0 -composite \
        -type TrueColor "BMP3:$1/header.bmp"
}
