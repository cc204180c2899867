# dlglib_import_delayed(target library exports source): the target calls a DLL that it loads when it first calls it. `exports` lists the
# DLL's names; `source` says where it is loaded from. Only functions can be delayed, and those that take floating-point numbers cannot:
# the first call of each would lose them.
function(dlglib_import_delayed target library exports source)
  set(stem ${CMAKE_CURRENT_BINARY_DIR}/${library}_delayed)
  add_custom_command(OUTPUT ${stem}.a
    COMMAND ${CMAKE_COMMAND} -DNAMES=${exports} -DLIBRARY=${library}.dll -DOUTPUT=${stem}.def
      -P ${PROJECT_SOURCE_DIR}/cmake/write_def.cmake
    COMMAND ${CMAKE_DLLTOOL} --input-def ${stem}.def --output-delaylib ${stem}.a
    DEPENDS ${exports} ${PROJECT_SOURCE_DIR}/cmake/write_def.cmake
    VERBATIM)
  add_custom_target(${library}_delayed DEPENDS ${stem}.a)
  add_dependencies(${target} ${library}_delayed)
  target_sources(${target} PRIVATE ${source})
  target_link_libraries(${target} PRIVATE ${stem}.a)
  set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS ${stem}.a)
endfunction()
