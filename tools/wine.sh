# Shell functions that run Windows programs under Wine, in a prefix of the build folder.
# To be sourced, with `root` set to the project's folder. VELMORA_WINE_PREFIX may name another prefix.

# The 64-bit loader itself: the front-end of the distribution complains about a missing 32-bit one.
wine=/usr/lib/wine/wine64
wineserver=/usr/lib/wine/wineserver64
[[ -x $wine ]] || wine=wine
[[ -x $wineserver ]] || wineserver=wineserver

wine_started=no

# Makes the prefix when there is none, which takes some seconds. Nothing is downloaded, the menus of
# the user's desktop don't change, and no debugger writes over the output of a program that crashes.
start_wine() {
    [[ $wine_started == no ]] || return 0
    export WINEPREFIX=${VELMORA_WINE_PREFIX:-$root/build/wine}
    export WINEDEBUG=-all
    export WINEDLLOVERRIDES='mscoree=;mshtml=;winemenubuilder.exe=d;winedbg.exe=d'
    # Wine's recycle bin is the trash of the user's desktop; the tests have one of their own.
    export XDG_DATA_HOME=$WINEPREFIX-data
    mkdir -p "$XDG_DATA_HOME"
    export VELMORA_OWN_RECYCLE_BIN=Z:${XDG_DATA_HOME//\//\\}\\Trash
    wine_started=yes
    rm -f "$WINEPREFIX/known-surroundings"
    # A prefix without this file is incomplete.
    [[ -f $WINEPREFIX/made ]] || make_prefix || return 1
    # Until it is told to end: one that ends by itself between two programs can take the second
    # one with it.
    "$wineserver" -p </dev/null >/dev/null 2>&1 || true
}

make_prefix() {
    rm -rf "$WINEPREFIX"
    say "Making a Wine prefix"
    timeout 300 "$wine" wineboot -i </dev/null >"$root/build/wineboot.log" 2>&1 &&
        give_font &&
        timeout 60 "$wineserver" -w </dev/null &&
        touch "$WINEPREFIX/made"
}

# Shows Windows programs in a font that every Linux machine with a desktop has: Wine's own choice
# isn't installed with it, and without it Wine would take any font of the machine.
give_font() {
    timeout 60 "$wine" reg add 'HKEY_CURRENT_USER\Software\Wine\Fonts\Replacements' /f \
        /v Tahoma /d 'DejaVu Sans' </dev/null >>"$root/build/wineboot.log" 2>&1
}

# Ends the programs that still run in the prefix.
stop_wine() {
    [[ $wine_started == yes ]] || return 0
    wine_started=no
    timeout 60 "$wineserver" -k </dev/null >/dev/null 2>&1 || true
}
