#!/bin/sh
# GCC for Windows knows one linker by its full path and calls it through collect2. This stands in between
# ("-wrapper"): lld takes the same arguments.
shift
exec ld.lld "$@"
