# Makes the packages for windows. To be sourced by make_packages.sh.

make_windows_packages() { say "no packages for windows yet"; }
