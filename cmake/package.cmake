# The archive, by CPack: the SDK and what package_contents.cmake adds. `./build.sh --package` makes it from a clean build.
set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_NAME dlglib)
set(CPACK_PACKAGE_VENDOR Nalbo)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "The dialog library of the Corvane suite")
set(CPACK_PACKAGE_FILE_NAME dlglib-${PROJECT_VERSION}-win64)
set(CPACK_PACKAGE_CHECKSUM SHA256)
# It is unpacked into a folder of its own.
set(CPACK_INCLUDE_TOPLEVEL_DIRECTORY OFF)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/package_contents.cmake)
# What the script must know.
set(CPACK_DLGLIB_SOURCES ${PROJECT_SOURCE_DIR})
set(CPACK_DLGLIB_OBJCOPY ${CMAKE_OBJCOPY})
set(CPACK_DLGLIB_NM ${CMAKE_NM})
include(CPack)
