#!/usr/bin/env bash
# Builds the library against a package that offers crvnsuite::crvnsuite, as a suite with core libraries of its own does, and finds
# the result as a client does. The package is made of the SDK's stand-in: its headers, its import library, its DLL.
#
#   check_external_suite.sh <root of the sources> <sdk> <build folder>
set -euo pipefail
sources=$1 sdk=$2 build=$3
package=$build/crvnsuite
rm -rf "$package" "$build/sdk" "$build/client"
mkdir -p "$package/include/platform/suite" "$build/client"
cp "$sources"/platform/suite/{crvn*,export}.h "$package/include/platform/suite/"
cp "$sdk/lib/libcrvnsuite.dll.a" "$sdk/bin/crvnsuite.dll" "$package/"
cat >"$package/crvnsuite-config.cmake" <<'PACKAGE'
if(NOT TARGET crvnsuite::crvnsuite)
  add_library(crvnsuite::crvnsuite SHARED IMPORTED)
  set_target_properties(crvnsuite::crvnsuite PROPERTIES
    IMPORTED_LOCATION ${CMAKE_CURRENT_LIST_DIR}/crvnsuite.dll
    IMPORTED_IMPLIB ${CMAKE_CURRENT_LIST_DIR}/libcrvnsuite.dll.a
    INTERFACE_INCLUDE_DIRECTORIES ${CMAKE_CURRENT_LIST_DIR}/include)
endif()
PACKAGE
cat >"$build/client/CMakeLists.txt" <<'CLIENT'
cmake_minimum_required(VERSION 3.25)
project(client LANGUAGES CXX)
find_package(dlglib CONFIG REQUIRED)
add_executable(client main.cpp)
target_link_libraries(client PRIVATE dlglib::dlglib -static)
CLIENT
cat >"$build/client/main.cpp" <<'CLIENT'
#include <dlglib/dlglib.h>
int main() {
  CvUtility utility;
  return utility.CheckModelName("A-001") != 0 ? 0 : 1;
}
CLIENT

# configure <sources> <build folder> [option...]
configure() {
  cmake -S "$1" -B "$2" -G Ninja -DCMAKE_TOOLCHAIN_FILE="$sources/cmake/mingw64.cmake" -DCMAKE_BUILD_TYPE=Debug \
    -DCMAKE_CXX_FLAGS_DEBUG=-O0 "${@:3}" >"$2.log" 2>&1 || { cat "$2.log"; return 1; }
}

mkdir -p "$build"
configure "$sources" "$build/library" -DDLGLIB_EMBEDDED_SUITE=OFF -DBUILD_TESTING=OFF -DCMAKE_PREFIX_PATH="$package"
cmake --build "$build/library" -- --quiet
cmake --install "$build/library" --prefix "$build/sdk" >"$build/install.log"
found=$(cd "$build/sdk" && find . -name '*crvnsuite*' -o -path '*platform/suite*' | sort)
[ -z "$found" ] || { echo "what the suite brings is installed: $found"; exit 1; }
configure "$build/client" "$build/client-build" -DCMAKE_PREFIX_PATH="$build/sdk;$package"
cmake --build "$build/client-build" -- --quiet
