#!/usr/bin/env bash
# What a DLL of the product imports: no call of the system that takes or gives a text in 8-bit form, as that form has the system's
# own code page. Prints each one and answers 1 when there is one.
#
#   check_imports.sh <dll>...
set -u
export LC_ALL=C

# Of the compiler's run-time library, which passes no text of ours: threads make unnamed events and semaphores, a broken
# program writes an English line for a debugger, and a DLL that is loaded late has an English name. Later compilers' libraries also ask
# for settings of their own, and for the system's texts of errors, which are never shown. Sources of ours that call these are
# refused by check_sources.sh.
run_time='CreateEventA|CreateSemaphoreA|FormatMessageA|GetModuleHandleA|LoadLibraryA|OutputDebugStringA|getenv'
c_library='_access|_chdir|_mkdir|_open|_rmdir|_stat64|_unlink|fopen|freopen|getenv|remove|rename|setlocale|system'

breaches=0
for dll in "$@"; do
  imports=$(x86_64-w64-mingw32-objdump -p "$dll" | awk '/DLL Name:/ { from = $3 } /^\t[0-9a-f]+[ \t]/ { print from, $NF }')
  [ -n "$imports" ] || { echo "$dll imports nothing"; exit 1; }
  found=$(grep -E " ([A-Za-z0-9_]*[a-z0-9]A|$c_library)$" <<<"$imports" | grep -v -E " ($run_time)$")
  [ -n "$found" ] || continue
  echo "$dll calls the system in 8-bit form:"
  sed 's/^/  /' <<<"$found"
  breaches=1
done
[ "$breaches" = 0 ]
