#!/usr/bin/env bash
# Builds convert_name.c with clang, lld and llvm-dlltool alone.
#
#   build.sh <folder of the headers> <crvndlglib.lib> <program to be made>
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
printf 'LIBRARY kernel32.dll\nEXPORTS\nExitProcess\nGetStdHandle\nWriteFile\n' >"$work/kernel32.def"
llvm-dlltool -m i386:x86-64 -d "$work/kernel32.def" -l "$work/kernel32.lib"
clang --target=x86_64-pc-windows-msvc -std=c99 -O2 -Wall -Wextra -Werror -ffreestanding "-I$1" -c "$here/convert_name.c" -o "$work/program.obj"
lld-link /nologo /entry:Start /subsystem:console /nodefaultlib "/out:$3" "$work/program.obj" "$2" "$work/kernel32.lib"
