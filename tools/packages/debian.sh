# Makes the packages for debian. To be sourced by make_packages.sh.

make_debian_packages() { say "no packages for debian yet"; }
