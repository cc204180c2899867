#!/usr/bin/env bash
# Sees every rule of check_sources.sh broken once, and a sound tree pass.
set -u
here=$(cd "$(dirname "$0")" && pwd)
tree=$(mktemp -d)
trap 'rm -rf "$tree"' EXIT
failures=0

put() { mkdir -p "$tree/$(dirname "$1")" && printf '%s\n' '#pragma once' "$2" >"$tree/$1"; }

sound_tree() {
  rm -rf "${tree:?}"/*
  put dlglib/base/shift_jis.h '#include <string>'
  put dlglib/utility/CvUtility.h '#include "platform/framework/wnd.h"'
  put dlglib/dlglib.h '#include "dlglib/utility/CvUtility.h"'
  put platform/framework/wnd.h '#include <windows.h>'
  put platform/suite/crvnbc.h 'class CwFile;  // never an HWND; strcpy( is not called here'
  put dlglib/utility/CvToolBar.cpp 'char* CvToolBar::DtoA(double) { return nullptr; }  // TTN_NEEDTEXTA, LVITEMA'
  put platform/os/os.h 'int Safe() { return m_hWnd != nullptr && GetFocus() == nullptr ? snprintf(nullptr, 0, "") : 0; }'
}

# refuses <file> <line>: the sound tree with that file must be refused, and the file be named.
refuses() {
  sound_tree
  put "$1" "$2"
  local said
  if said=$("$here/check_sources.sh" "$tree"); then
    echo "not noticed: $2 in $1"
    failures=$((failures + 1))
  elif [[ $said != *"$1:"* ]]; then
    echo "noticed, but not told where: $2 in $1: $said"
    failures=$((failures + 1))
  fi
}

sound_tree
"$here/check_sources.sh" "$tree" || { echo "a sound tree is refused"; failures=$((failures + 1)); }

refuses dlglib/filsel/names.h '#include <windows.h>'
refuses dlglib/filsel/names.cpp '#  include <commctrl.h>'
refuses dlglib/filsel/names.h '#include "platform/framework/wnd.h"'
refuses dlglib/filsel/names.h '#include "dlglib/utility/CvUtility.h"'
refuses dlglib/filsel/names.h 'void Show(HWND window);'
refuses dlglib/c_interface/zones.cpp '#include <windows.h>'
refuses dlglib/c_interface/call.h '#  include <commctrl.h>'
refuses dlglib/dlglib_c.cpp '#include <windows.h>'
refuses dlglib/filsel/names.h 'inline DWORD Count() { return 0; }'
refuses dlglib/filedialog/names/typed_name.cpp 'void Beep() { os::Services().session->Beep(0); }'
refuses dlglib/utility/rules/path_name.cpp 'CwSession& Session() { return *CwSession::GetInstance(); }'
refuses dlglib/filedialog/listing/file_filter.cpp 'CwSession& Session() { return *CwSession::GetInstance(); }'
refuses dlglib/filedialog/listing/list_columns.cpp 'CwModel* Model() { return GetActiveModel(); }'
refuses dlglib/utility/CvUtility.cpp 'int F(int key) { switch (key) { case VK_UP: return 1; default: return 0; } }'
refuses dlglib/utility/CvUtility.cpp 'constexpr int kSteps[][2] = {{VK_LEFT, 1}};'
refuses platform/suite/crvnbc.h '#include "dlglib/base/shift_jis.h"'
refuses platform/suite/crvnbc.h '#include "platform/framework/wnd.h"'
refuses platform/os/os.h '#include "platform/suite/crvnbc.h"'
refuses platform/framework/wnd.h '#include "platform/suite/crvnbc.h"'
refuses dlglib/utility/CvUtility.cpp 'void F() { ::SetWindowTextA(nullptr, "x"); }'
refuses dlglib/utility/CvUtility.cpp 'HMODULE F() { return LoadLibraryA("x"); }'
refuses dlglib/utility/CvUtility.cpp 'HMODULE F() { return::LoadLibraryA("x"); }'
refuses demo/main.cpp 'void F() { ::GetFullPathNameA("x", 0, nullptr, nullptr); }'
refuses platform/os/os_windows.cpp 'bool F(BYTE byte) { return ::IsDBCSLeadByte(byte) != FALSE; }'
refuses platform/os/os_windows.cpp 'HANDLE F() { return ::GetClipboardData(CF_TEXT); }'
refuses dlglib/utility/rules/number.cpp 'double F(const char* text) { return std::strtod(text, nullptr); }'
refuses platform/framework/wnd.h 'inline void F() { ImageList_LoadImageA(nullptr, nullptr, 0, 0, 0, 0, 0); }'
refuses platform/framework/wnd.h 'inline void F(HWND list) { ::SendMessageW(list, LVM_SETITEMTEXTA, 0, 0); }'
refuses platform/os/os_windows.cpp 'bool F(const char* path) { return ::_access(path, 0) == 0; }'
refuses platform/os/os_windows.cpp 'bool F(const char* path) { return std::rename(path, path) == 0; }'
refuses platform/os/os_windows.cpp 'constexpr UINT kPage = CP_ACP;'
refuses dlglib/utility/CvUtility.cpp 'int F() { return ::MultiByteToWideChar(932, 0, "", 0, nullptr, 0); }'
refuses dlglib/utility/CvUtility.cpp '#include "tests/windows/driver/user.h"'
refuses dlglib/utility/CvUtility.cpp 'void F(char* to) { strcpy(to, "x"); }'
refuses demo/main.cpp 'void F(char* to) { std::sprintf (to, "x"); }'
refuses tests/a_test.cpp 'void F(char* to) { lstrcatA(to, "x"); }'
refuses dlglib/utility/CvUtility.cpp 'TCHAR text[3];'
refuses dlglib/utility/CvUtility.cpp 'bool HasFocus(HWND window) { return ::GetFocus() == window; }'
refuses dlglib/utility/CvUtility.cpp 'bool IsFor(const MSG& message) { return list_.m_hWnd != message.hwnd; }'
refuses dlglib/utility/CvUtility.cpp '#include "dlglib/base/shift_jis.h"'
refuses dlglib/utility/CvUtility.cpp "void F() {$(printf '\n  Step("{");%.0s' {1..60})
}"

sound_tree
echo 'int x;' >"$tree/dlglib/utility/bare.h"
! "$here/check_sources.sh" "$tree" >/dev/null || { echo "not noticed: no #pragma once"; failures=$((failures + 1)); }

[ "$failures" = 0 ]
