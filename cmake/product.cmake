# The DLL, and what is installed: the SDK with bin/, lib/, include/ and lib/cmake/dlglib/.
include(CMakePackageConfigHelpers)
include(cmake/delayed_import.cmake)

# ---- The suite's core libraries: the embedded stand-in, or a package `crvnsuite` with the real ones, which brings its own
# platform/suite/ headers of the same names.
if(DLGLIB_EMBEDDED_SUITE)
  set(dlglib_suite crvnsuite)
else()
  find_package(crvnsuite CONFIG REQUIRED GLOBAL)
  set(dlglib_suite crvnsuite::crvnsuite)
  foreach(library dlglib_core dlglib_shell)
    target_include_directories(${library} BEFORE PRIVATE
      $<TARGET_PROPERTY:crvnsuite::crvnsuite,INTERFACE_INCLUDE_DIRECTORIES>)
  endforeach()
endif()

# ---- crvndlglib.dll. One copy of everything that has state: framework, library and resources in a single DLL.
add_library(crvndlglib SHARED)
add_library(dlglib::dlglib ALIAS crvndlglib)
target_link_libraries(crvndlglib
  PRIVATE dlglib_core dlglib_shell framework_objects os_windows dlglib_resources
          advapi32 shell32 ole32 uuid mpr imm32 comdlg32
  # The framework's inline members call these in the client too.
  PUBLIC comctl32 gdi32 user32
  INTERFACE ${dlglib_suite})
if(DLGLIB_EMBEDDED_SUITE)
  dlglib_import_delayed(crvndlglib crvnsuite ${PROJECT_SOURCE_DIR}/platform/suite/exports.txt
    ${PROJECT_SOURCE_DIR}/platform/os/suite_loader.cpp)
else()
  target_link_libraries(crvndlglib PRIVATE ${dlglib_suite})
endif()
set_target_properties(crvndlglib PROPERTIES PREFIX "" EXPORT_NAME dlglib)
dlglib_add_version(crvndlglib "Corvane ダイアログライブラリ")
# Nothing leaves the DLL but what is marked. The image base would else depend on the path of the build folder.
target_link_options(crvndlglib PRIVATE LINKER:--exclude-all-symbols LINKER:--image-base,0x268000000)
target_compile_features(crvndlglib INTERFACE cxx_std_20)
target_include_directories(crvndlglib INTERFACE
  $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}> $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)

# ---- What a client includes. A header that is missing here is noticed by the test that compiles each installed one alone.
set(dlglib_public_headers
  dlglib/dlglib.h
  dlglib/dlglib_c.h
  dlglib/dlglib_c_grid.h
  dlglib/dlglib_c_names.h
  dlglib/dlglib_c_types.h
  dlglib/filsel/CvFilSelDlg.h
  dlglib/kept_state.h
  dlglib/listcontrol/CvListControl.h
  dlglib/modes.h
  dlglib/utility/CvUtility.h
  dlglib/version.h
  platform/framework/accessible_name.h
  platform/framework/controls.h
  platform/framework/data_exchange.h
  platform/framework/dialog.h
  platform/framework/exceptions.h
  platform/framework/export.h
  platform/framework/framework.h
  platform/framework/gdi.h
  platform/framework/message.h
  platform/framework/message_box.h
  platform/framework/message_map.h
  platform/framework/reflection.h
  platform/framework/resource_module.h
  platform/framework/strings.h
  platform/framework/text_messages.h
  platform/framework/win32.h
  platform/framework/window_handle.h
  platform/framework/window_ref.h
  platform/framework/wnd.h)
set(suite_public_headers
  platform/suite/crvnbc.h
  platform/suite/crvncontrol.h
  platform/suite/crvncui.h
  platform/suite/crvndlg.h
  platform/suite/crvnmdl.h
  platform/suite/export.h)

set(dlglib_products crvndlglib)
set(dlglib_installed_headers ${dlglib_public_headers})
if(DLGLIB_EMBEDDED_SUITE)
  list(APPEND dlglib_installed_headers ${suite_public_headers})
  set_target_properties(crvnsuite PROPERTIES EXPORT_NAME suite)
  target_compile_features(crvnsuite INTERFACE cxx_std_20)
  target_include_directories(crvnsuite INTERFACE $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
  list(APPEND dlglib_products crvnsuite)
endif()

install(CODE "
  set(sources \"${PROJECT_SOURCE_DIR}\")
  set(include \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_INCLUDEDIR}\")
  set(headers \"${dlglib_installed_headers}\")")
install(SCRIPT ${CMAKE_CURRENT_LIST_DIR}/install_headers.cmake)

install(TARGETS ${dlglib_products} EXPORT dlglib-targets
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})

# ---- find_package(dlglib CONFIG). Which run-time library the programs need.
include(CheckCXXSymbolExists)
check_cxx_symbol_exists(_UCRT cstdlib DLGLIB_HAS_UCRT)
set(dlglib_package ${CMAKE_INSTALL_LIBDIR}/cmake/dlglib)
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/dlglib-config.cmake.in ${PROJECT_BINARY_DIR}/dlglib-config.cmake
  INSTALL_DESTINATION ${dlglib_package})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/dlglib-config-version.cmake COMPATIBILITY SameMajorVersion)
install(EXPORT dlglib-targets NAMESPACE dlglib:: DESTINATION ${dlglib_package})
install(FILES ${PROJECT_BINARY_DIR}/dlglib-config.cmake ${PROJECT_BINARY_DIR}/dlglib-config-version.cmake
  DESTINATION ${dlglib_package})

# ---- pkg-config dlglib. The import libraries by their whole names, which are found with -static too.
if(DLGLIB_EMBEDDED_SUITE)
  set(dlglib_pc_suite -l:libcrvnsuite.dll.a)
endif()
configure_file(${CMAKE_CURRENT_LIST_DIR}/dlglib.pc.in ${PROJECT_BINARY_DIR}/dlglib.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/dlglib.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

include(cmake/package.cmake)
