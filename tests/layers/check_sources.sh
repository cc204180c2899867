#!/usr/bin/env bash
# Checks the sources of a tree for what no compiler notices: that the layers point downwards only, that the core knows no window,
# that no unbounded copy is called, that no function is longer than a screen. Prints each breach as file:line: text and answers 1
# when there is one.
#
#   check_sources.sh <root of the tree>
set -u
here=$(cd "$(dirname "$0")" && pwd)
cd "$1" || exit 2
# Patterns are about bytes, whatever the machine's locale.
export LC_ALL=C
breaches=0

sources() { find "$@" -type f \( -name '*.h' -o -name '*.cpp' -o -name '*.c' -o -name '*.inc' \) 2>/dev/null | sort; }

# Files of the core: dlglib/ in snake_case. dlglib.h gathers the public headers, dlglib_c and c_interface/ are the C interface; the IDs of resources are plain numbers.
core_sources() { sources dlglib | grep -E '/[a-z0-9_]+\.(h|cpp|inc)$' | grep -v -E '^dlglib/(dlglib\.h|dlglib_c[a-z_]*\.(h|cpp)|c_interface/|resources/)'; }

# report <rule> <pattern> <files...>: lines that match outside comments are breaches.
report() {
  local rule=$1 pattern=$2 found
  shift 2
  [ $# -gt 0 ] || return 0
  found=$(awk -v pattern="$pattern" '
    { line = $0; sub(/\/\/.*/, "", line); if (line ~ pattern) print FILENAME ":" FNR ": " $0 }' "$@")
  [ -n "$found" ] || return 0
  echo "$rule:"
  sed 's/^/  /' <<<"$found"
  breaches=$((breaches + $(wc -l <<<"$found")))
}

word='(^|[^A-Za-z0-9_])'
end='([^A-Za-z0-9_]|$)'

# ---- layers
win32_types='H(WND|DC|MENU|ICON|FONT|BRUSH|PEN|BITMAP|CURSOR|INSTANCE|MODULE|KEY|RGN|IMAGELIST|RESULT|GDIOBJ|ANDLE)|[WL]PARAM'
win32_types="$win32_types|LRESULT|DWORD|WORD|BYTE|BOOL|UINT|LONG|COLORREF|RECT|POINT|SIZE|LPC?W?STR|LPC?STR|TCHAR|CALLBACK|WINAPI"
mapfile -t core < <(core_sources)
report "the core includes a header of the system" '^[ \t]*#[ \t]*include[ \t]*<[^>]*\.h>' "${core[@]}"
report "the core includes the framework" '^[ \t]*#[ \t]*include[ \t]*"platform/framework/' "${core[@]}"
report "the core includes the window shell" '^[ \t]*#[ \t]*include[ \t]*"([^"]*/)?Cv[A-Za-z]*\.h"' "${core[@]}"
report "the core names a type of the system" "$word($win32_types)$end" "${core[@]}"

# What a key means is the core's to say: a window asks, and does it.
mapfile -t shell < <(sources dlglib | grep -E '/Cv[A-Za-z]*\.(h|cpp)$')
report "a table of keys in a window class" "case[ \\t]+VK_|[{][ \\t]*VK_" ${shell[@]+"${shell[@]}"}

# The C interface speaks of windows, but through the headers of the framework.
mapfile -t interface < <(sources dlglib/dlglib_c.cpp dlglib/c_interface | grep -E '/[a-z0-9_]+\.(h|cpp)$')
report "the C interface includes a header of the system" '^[ \t]*#[ \t]*include[ \t]*<[^>]*\.h>' ${interface[@]+"${interface[@]}"}

report "the core asks machine or session behind its caller's back" 'os::Services[(]|CwSession::GetInstance[(]|GetActiveModel[(]' "${core[@]}"

mapfile -t platform < <(sources platform)
mapfile -t suite < <(sources platform/suite | grep -v -E '/(TlbDialog|RegDspDialog)')
mapfile -t os < <(sources platform/os)
mapfile -t framework < <(sources platform/framework)
report "the platform includes the library" '^[ \t]*#[ \t]*include[ \t]*"(dlglib|demo)/' "${platform[@]}"
report "the suite includes the framework" '^[ \t]*#[ \t]*include[ \t]*"platform/framework/' "${suite[@]}"
report "the services include the framework or the suite" \
  '^[ \t]*#[ \t]*include[ \t]*"platform/(framework|suite)/' "${os[@]}"
report "the framework includes the suite" '^[ \t]*#[ \t]*include[ \t]*"platform/suite/' "${framework[@]}"
mapfile -t library < <(sources dlglib platform)
report "the product includes a test or the demo" '^[ \t]*#[ \t]*include[ \t]*"(tests|demo|bench|fuzz)/' "${library[@]}"

# ---- texts. Inside they are Shift_JIS; the system gets and gives UTF-16, whatever its own code page is. What stays, and why:
#   - structures and notification codes of the 8-bit form (LVITEMA, LVN_ENDLABELEDITA): the framework and its rows speak of Shift_JIS
#     texts in them, and they never reach the system;
#   - TTN_NEEDTEXTA: a host that asks in 8-bit form is answered in it;
#   - names of window classes (WC_EDITA): ASCII, and converted like every text.
# What the linked DLLs import is checked as well (check_imports.sh).
mapfile -t speaking < <(sources dlglib platform | grep -v -E '/os_scripted\.|/tools/')
mapfile -t shown < <(printf '%s\n' "${speaking[@]}"; sources demo examples)
# With or without the "::" of the global namespace. DtoA is an operation of CvUtility.
report "an 8-bit call of the system" \
  "${word}([A-CE-Z][A-Za-z0-9]*|D[A-Za-su-z0-9][A-Za-z0-9]*)[a-z0-9]A[ \t]*[(]|${word}ImageList_[A-Za-z]+A[ \t]*[(]" \
  "${shown[@]}"
report "texts of the clipboard in the system's code page" "${word}CF_(OEM)?TEXT$end" "${shown[@]}"
report "a question that the system's code page or the C library's locale answers" \
  "$word(IsDBCSLeadByte|mbstowcs|wcstombs|strto(d|l|ul)|ato[fil]|_?str(n?i|case)cmp|(to|is)(upper|lower|alpha|digit|space|alnum|print))[ \t]*[(]" \
  "${speaking[@]}"
report "a message of the common controls in 8-bit form" "$word(LVM|HDM|TTM|TB|TVM|TCM|CBEM|SB|RB)_[A-Z]+A$end" "${speaking[@]}"
report "an 8-bit file call of the C library" \
  "$word(_access|fopen|freopen|_mkdir|_rmdir|_chdir|_stat64|_unlink|_open|getenv|setlocale|system|std::re(name|move))[ \t]*[(][^)]" \
  "${speaking[@]}"
report "the system's own code page" "${word}CP_(ACP|OEMCP|THREAD_ACP)$end" "${speaking[@]}"
wide_places='^platform/(os/sjis_wide\.h|os/os_windows\.cpp|os/sjis_edit\.cpp|framework/detail/utf8\.cpp)$'
mapfile -t elsewhere < <(printf '%s\n' "${speaking[@]}" | grep -v -E "$wide_places")
report "a conversion beside the one place for it (platform/os/sjis_wide.h)" \
  "$word(MultiByteToWideChar|WideCharToMultiByte)$end" "${elsewhere[@]}"

# ---- safety
mapfile -t all < <(sources dlglib platform demo tests bench fuzz examples)
report "a copy without a bound" \
  "$word(str(cpy|cat)|v?sprintf|gets|wcs(cpy|cat)|_mbs(cpy|cat)|lstr(cpy|cat)[AW]?|wv?sprintf[AW]?)[ \t]*[(]" "${all[@]}"
report "text that depends on UNICODE" "$word(TCHAR$end|LPC?TSTR$end|_T[(]|TEXT[(])" "${all[@]}"
mapfile -t windows < <(sources dlglib platform demo tests/windows/driver)
handle='(Get(Focus|Capture|Parent|ForegroundWindow|ActiveWindow|Ancestor|DlgItem)|WindowFromPoint)[(][^;()]*[)]|hwnd[A-Za-z]*|m_hWnd'
report "windows compared as handles (IsSameWindow)" \
  "($handle) *[!=]= *[^n ]|[!=]= *[A-Za-z0-9_.:>()-]*($handle)" "${windows[@]}"

# ---- form. tests/sdk is a project of its own.
long=$([ ${#all[@]} = 0 ] || awk -v limit=60 -f "$here/long_functions.awk" "${all[@]}")
if [ -n "$long" ]; then
  echo "a function too long to see whole:"
  sed 's/^/  /' <<<"$long"
  breaches=$((breaches + 1))
fi

missing_self() {
  local file own
  for file in "$@"; do
    own=${file%.cpp}.h
    [ -f "$own" ] || continue
    [ "$(grep -m 1 '^#include' "$file")" = "#include \"$own\"" ] || echo "$file:1: $own does not come first"
  done
}
mapfile -t units < <(sources dlglib platform demo tests | grep '\.cpp$' | grep -v '^tests/sdk/')
unguarded=$(sources dlglib platform demo tests | grep '\.h$' | grep -v -E '/resource\.h$|^tests/sdk/' |
  while read -r header; do grep -q '^#pragma once' "$header" || echo "$header:1: no #pragma once"; done)
for found in "$(missing_self ${units[@]+"${units[@]}"})" "$unguarded"; do
  [ -n "$found" ] || continue
  echo "headers that may not stand alone:"
  sed 's/^/  /' <<<"$found"
  breaches=$((breaches + 1))
done

[ "$breaches" = 0 ]
