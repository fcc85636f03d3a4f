#!/usr/bin/env bash
# Photographs every page and window into docs/screenshots: tools/make_screenshots.sh
# The windows stand over a machine in memory, without a screen, so the pictures come out the same
# wherever the same fonts are installed.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
source "$root/tools/setup.sh"

install_packages "${build_packages[@]}" googletest fonts-dejavu-core
build_preset dev velmora-screenshots
for look in light dark; do
    QT_QPA_PLATFORM=offscreen "$root/build/dev/tests/screenshots/velmora-screenshots" \
        "$root/docs/screenshots" "$look" 2>/dev/null
done
