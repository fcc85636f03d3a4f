#!/usr/bin/env bash
# Takes a screenshot of every page and window into docs/screenshots: tools/make_screenshots.sh
# The program runs over a machine in memory, without a screen, so the pictures are the same on every
# machine with the same fonts.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
source "$root/tools/setup.sh"

install_packages "${build_packages[@]}" googletest fonts-dejavu-core
build_preset dev velmora-screenshots
for look in light dark; do
    QT_QPA_PLATFORM=offscreen "$root/build/dev/tests/screenshots/velmora-screenshots" \
        "$root/docs/screenshots" "$look" 2>/dev/null
done
