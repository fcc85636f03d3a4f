# Shell functions for a virtual display, for tests that show windows.
# To be sourced after tools/setup.sh.

display_process=

# Sets DISPLAY to a new display with a free number: start_display [WIDTHxHEIGHT]
start_display() {
    [[ -z $display_process ]] || return 0
    local number size=${1:-1280x1024}
    exec {display_numbers}< <(exec Xvfb -displayfd 1 -screen 0 "${size}x24" -nolisten tcp -noreset \
        </dev/null 2>"$root/build/xvfb.log")
    display_process=$!
    if read -r -t 60 -u "$display_numbers" number && [[ -n $number ]]; then
        export DISPLAY=:$number
    else
        say "Xvfb does not start; see build/xvfb.log"
        stop_display
        return 1
    fi
}

# Ends the display, and with it the programs that still show windows on it.
stop_display() {
    [[ -n $display_process ]] || return 0
    kill "$display_process" 2>/dev/null || true
    wait "$display_process" 2>/dev/null || true
    exec {display_numbers}<&-
    display_process=
    unset DISPLAY
}
