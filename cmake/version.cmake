# dlglib_add_version(target description): the DLL's version record, with the version of project(). It is linked into the DLL
# alone, never into tests that link its objects: two version records cannot stand in one program.
function(dlglib_add_version DLL_NAME DLL_DESCRIPTION)
  configure_file(${PROJECT_SOURCE_DIR}/cmake/version.rc.in ${CMAKE_CURRENT_BINARY_DIR}/${DLL_NAME}_version.rc @ONLY)
  # windres would damage Japanese texts without a warning, were it not told of UTF-8 here as well.
  set_source_files_properties(${CMAKE_CURRENT_BINARY_DIR}/${DLL_NAME}_version.rc PROPERTIES COMPILE_OPTIONS "-c;65001")
  target_sources(${DLL_NAME} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/${DLL_NAME}_version.rc)
endfunction()
