#!/usr/bin/env bash
# Takes a screenshot of every page and window, light and dark, at 100, 150 and 200 %:
#
#   tools/make_screenshots.sh            builds what is needed, and does all of the following
#   tools/make_screenshots.sh build      only builds
#   tools/make_screenshots.sh native     those of this machine
#   tools/make_screenshots.sh windows    those of the Windows program
#   tools/make_screenshots.sh help       those of the help page
#
# Those of this machine go to docs/screenshots (100 %) and its folders 150 and 200. Where the window
# can be built for Windows, the same taken under Wine go to windows, windows/150 and windows/200
# there. The pictures that the help page names are copied to dist/help. The program runs over a
# machine in memory, so the pictures are the same on every machine with the same fonts.
#
# Each picture counts as a test, and the last line of the output counts them. A picture fails that
# shows nothing, that hasn't the size of its scale, that another run has and this one hasn't, or that
# the help page misses.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
source "$root/tools/setup.sh"
source "$root/tools/wine.sh"
source "$root/tools/display.sh"

target=$root/docs/screenshots
help_folder=$root/dist/help
program=tests/screenshots/velmora-screenshots
looks=(light dark)
scales=(100 150 200)
# More than the largest window at the largest scale.
display_size=2560x1600
# A picture with fewer colours shows no window.
least_colours=8
longest_run=300

passed=0
failed=0
fail() {
    printf 'FAILED: %s\n' "$1"
    failed=$((failed + 1))
}

# Where a Qt for Windows is named, or was found before.
has_windows_window() {
    [[ -n ${VELMORA_WINDOWS_QT:-} ]] ||
        { [[ -f $root/build/windows/build.ninja ]] && has_target windows velmora-screenshots; }
}

build_programs() {
    build_preset dev velmora-screenshots
    has_windows_window || return 0
    configure_preset windows
    ! has_target windows velmora-screenshots || build_preset windows velmora-screenshots
}

# Up to 256 colours, which a window hardly has more of, make a third of the file. No date is kept:
# the same window makes the same file.
shrink() {
    convert "$1" -strip +dither -colors 256 -define png:exclude-chunks=date,time "PNG8:$2" &&
        [[ $(identify -format %k "$2") -ge $least_colours ]]
}

# The folder of a scale, in that of 100 %.
folder_of() {
    if [[ $2 == 100 ]]; then printf '%s\n' "$1"; else printf '%s\n' "$1/$2"; fi
}

# Prints the names of a folder's pictures of a look, without look and ending.
names_in() {
    local path
    for path in "$1"/*-"$2".png; do
        path=${path##*/}
        [[ $path == '*'* ]] || printf '%s\n' "${path%-"$2".png}"
    done
}

# Every run has the pictures of the first one on this machine.
expected_names=

# Whether a picture is about as much wider than that of 100 % as its scale says.
has_scale() {
    local width plain
    width=$(identify -format %w "$1")
    plain=$(identify -format %w "$2")
    [[ $((width * 100)) -ge $((plain * $3 * 9 / 10)) ]]
}

# Puts the pictures that a run has left in a folder into the one for its scale, and counts them.
publish() {
    local taken=$1 plain=$2 scale=$3 look=$4 folder name
    folder=$(folder_of "$plain" "$scale")
    mkdir -p "$folder"
    rm -f "$folder"/*-"$look".png
    expected_names=${expected_names:-$(names_in "$taken" "$look")}
    for name in $expected_names; do
        if shrink "$taken/$name-$look.png" "$folder/$name-$look.png" &&
            has_scale "$folder/$name-$look.png" "$plain/$name-$look.png" "$scale"; then
            passed=$((passed + 1))
        else
            fail "${folder#"$root/"}/$name-$look.png"
        fi
    done
    for name in $(names_in "$taken" "$look"); do
        grep -qxF -- "$name" <<<"$expected_names" || fail "$name is only in ${folder#"$root/"}"
    done
}

# take FOLDER COMMAND...: all scales and looks, each added to the command with its scale.
take() {
    local plain=$1 scale look taken=$root/build/screenshots
    shift
    for scale in "${scales[@]}"; do
        for look in "${looks[@]}"; do
            rm -rf "$taken"
            mkdir -p "$taken"
            if ! timeout "$longest_run" "$@" "$look" $((scale / 100)).$((scale % 100)) \
                </dev/null >"$taken/output" 2>&1; then
                cat "$taken/output"
                fail "the run for ${plain#"$root/"}, $scale %, $look"
            fi
            publish "$taken" "$plain" "$scale" "$look"
        done
    done
    rm -rf "$taken"
}

# The screen of the offscreen platform is small unless a file says otherwise.
take_native() {
    local screen=$root/build/screen.json
    printf '{"screens": [{"name": "large", "x": 0, "y": 0, "width": %d, "height": %d,
        "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]}\n' \
        "${display_size%x*}" "${display_size#*x}" >"$screen"
    QT_QPA_PLATFORM=offscreen:configfile=$screen \
        take "$target" "$root/build/dev/$program" "$root/build/screenshots"
}

take_under_wine() {
    local exe=$root/build/windows/$program.exe
    if [[ ! -f $exe ]]; then
        printf 'No Qt for Windows: no pictures of Windows are taken.\n'
        return 0
    fi
    if ! start_display "$display_size" || ! start_wine; then
        fail "Wine, or its display"
        return 0
    fi
    expected_names=$(names_in "$target" "${looks[0]}")
    take "$target/windows" "$wine" "$exe" "Z:${root//\//\\}\\build\\screenshots"
}

# The pictures that the help page names, and no others.
furnish_help_page() {
    local path name
    mkdir -p "$help_folder"
    rm -f "$help_folder"/*.png
    while read -r path; do
        name=${path#help/}
        if [[ -f $target/$name ]]; then
            cp "$target/$name" "$help_folder/$name"
            passed=$((passed + 1))
        else
            fail "the help page's $path: no such picture was taken"
        fi
    done < <(grep -o 'help/[a-z0-9-]*\.png' "$root/dist/velmora.html" | sort -u)
}

clean_up() {
    stop_wine
    stop_display
}
trap clean_up EXIT
trap 'exit 130' INT
trap 'exit 143' TERM

case ${1:-all} in
build | native | windows | help | all) wanted=${1:-all} ;;
*)
    sed -n '2,/^set/s/^# \{0,1\}//p' "${BASH_SOURCE[0]}" >&2
    exit 2
    ;;
esac
is_wanted() { [[ $wanted == all || $wanted == "$1" ]]; }

mkdir -p "$root/build"
if is_wanted build; then
    install_packages "${build_packages[@]}" "${test_packages[@]}" fonts-dejavu-core
    build_programs
fi
! is_wanted native || take_native
! is_wanted windows || take_under_wine
! is_wanted help || furnish_help_page
[[ $wanted != build ]] || exit 0
printf '%d passed, %d failed\n' "$passed" "$failed"
[[ $failed -eq 0 ]]
