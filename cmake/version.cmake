# dlglib_add_version(target description): the version record of a DLL or program, with the version of project(). It is linked into
# that alone, never into tests that link its objects: two version records cannot stand in one program.
function(dlglib_add_version target description)
  get_target_property(type ${target} TYPE)
  set(file_type VFT_DLL)
  set(suffix .dll)
  if(type STREQUAL EXECUTABLE)
    set(file_type VFT_APP)
    set(suffix .exe)
  endif()
  set(record ${CMAKE_CURRENT_BINARY_DIR}/${target}_version.rc)
  configure_file(${PROJECT_SOURCE_DIR}/cmake/version.rc.in ${record} @ONLY)
  # windres would damage Japanese texts without a warning, were it not told of UTF-8 here as well.
  set_source_files_properties(${record} PROPERTIES COMPILE_OPTIONS "-c;65001")
  target_sources(${target} PRIVATE ${record})
endfunction()
