#!/usr/bin/env bash
# Makes the packages that users install, into build/packages: tools/make_packages.sh [kind...]
#
#   debian    velmora_VERSION_amd64.deb, for all users of a Debian system
#   windows   velmora-VERSION-win64.exe, the installer, and velmora-VERSION-win64.zip, the portable
#             program; needs VELMORA_WINDOWS_QT for the window, VELMORA_WINDOWS_CURL for encrypted mail
#
# Without a kind both are made. What can be taken from earlier builds isn't built again.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
source "$root/tools/setup.sh"

packages=$root/build/packages

kinds=("$@")
[[ $# -gt 0 ]] || kinds=(debian windows)
for kind in "${kinds[@]}"; do
    case $kind in
    debian | windows) ;;
    *)
        sed -n '2,/^set/s/^# \{0,1\}//p' "${BASH_SOURCE[0]}" >&2
        exit 2
        ;;
    esac
done

mkdir -p "$packages"
for kind in "${kinds[@]}"; do
    source "$root/tools/packages/$kind.sh"
    "make_${kind}_packages"
done
