# Run by CPack between the installation into its staging folder and the packing of that: turns the SDK into the archive. Programs lose
# their debug records, which become files of their own, and what is no part of an SDK comes beside it.
cmake_minimum_required(VERSION 3.25)
set(sources ${CPACK_DLGLIB_SOURCES})
set(staging ${CPACK_TEMPORARY_INSTALL_DIRECTORY})

function(run)
  execute_process(COMMAND ${ARGN} WORKING_DIRECTORY ${staging} COMMAND_ERROR_IS_FATAL ANY OUTPUT_QUIET)
endfunction()

# A debugger finds the records by the name in the program, beside it or in the folders it is told of.
function(split_debug_records program)
  set(records symbols/${program}.debug)
  run(${CPACK_DLGLIB_OBJCOPY} --only-keep-debug bin/${program} ${records})
  run(${CPACK_DLGLIB_OBJCOPY} --strip-all --add-gnu-debuglink=${records} bin/${program})
endfunction()

# The exported names for linkers of other compilers. A name without code is data: the import library has only a pointer to it.
function(write_import_library)
  execute_process(COMMAND ${CPACK_DLGLIB_NM} --format=posix lib/libcrvndlglib.dll.a WORKING_DIRECTORY ${staging}
    OUTPUT_VARIABLE symbols ERROR_QUIET COMMAND_ERROR_IS_FATAL ANY)
  file(STRINGS ${sources}/dlglib/exports.txt names)
  set(text "LIBRARY crvndlglib.dll\nEXPORTS\n")
  foreach(name IN LISTS names)
    string(FIND "${symbols}" "\n${name} T " at)
    set(kind)
    if(at LESS 0)
      set(kind " DATA")
    endif()
    string(APPEND text "    ${name}${kind}\n")
  endforeach()
  file(WRITE ${staging}/lib/dlglib.def "${text}")
  find_program(dlltool NAMES llvm-dlltool llvm-dlltool-19 llvm-dlltool-14 REQUIRED)
  run(${dlltool} -m i386:x86-64 -d lib/dlglib.def -l lib/crvndlglib.lib)
endfunction()

function(add_documents)
  file(COPY ${sources}/docs/ DESTINATION ${staging}/docs FILES_MATCHING PATTERN *.md PATTERN *.png)
  file(COPY ${sources}/README.md ${sources}/README.ja.md ${sources}/CHANGELOG.md ${sources}/LICENSE.md DESTINATION ${staging})
  # What the pages lead to.
  foreach(file CONTRIBUTING.md bench/README.md demo/corvane-demo.manifest fuzz/README.md)
    cmake_path(GET file PARENT_PATH folder)
    file(COPY ${sources}/${file} DESTINATION ${staging}/${folder})
  endforeach()
  run(${sources}/docs/build.sh ${staging} ${staging}/reference)
  file(RENAME ${staging}/reference/html ${staging}/docs/reference)
  file(REMOVE_RECURSE ${staging}/reference)
endfunction()

file(MAKE_DIRECTORY ${staging}/symbols)
foreach(program crvndlglib.dll crvnsuite.dll corvane-demo.exe)
  split_debug_records(${program})
endforeach()
file(COPY ${sources}/demo/corvane.session ${sources}/demo/data DESTINATION ${staging}/bin)
file(COPY ${sources}/examples DESTINATION ${staging})
write_import_library()
add_documents()
run(python3 -B ${sources}/cmake/bill_of_materials.py ${staging} ${CPACK_PACKAGE_VERSION} dlglib.spdx.json)
