# Test programs. Each one is a GoogleTest program and one CTest test; its single results are written to
# <build>/test-results/<name>.xml, where test.sh counts them.
#
#   dlglib_add_native_test(name SOURCES ... LIBRARIES ... [COST seconds])
#     A test that opens no window. It is built and run natively, under the sanitizers.
#   dlglib_add_windowless_test(name SOURCES ... LIBRARIES ... [COST seconds])
#     A test of something that only Windows has (resources, the real registry) and that opens no window, Windows build only. It takes
#     no display from others.
#   dlglib_add_window_test(name SOURCES ... LIBRARIES ... [COST seconds] [FILTER tests] [LONG])
#     A test that opens windows, Windows build only. It links the window driver (tests/windows/driver). Two such programs on one
#     display take each other's input: each asks CTest for a display (cmake/displays.json), and without that file they must
#     run one at a time, as CTest does when nothing else is said. LONG: `ctest -C long` only, under its name with "_long" behind it.
#   FILTER: some of the program's tests; others run with `ctest -C long` only (dlglib_add_long_run).
#   COST: what it takes on a busy machine, where that is much; those start first, so that none runs alone at the end.
#   dlglib_add_test_objects(name SOURCES ... LIBRARIES ...)
#     What several test programs share, compiled once. The libraries say which headers it sees; a program that links it links
#     them as well.

# A test says by itself, after some seconds, what it waited for in vain. The limit only ends a program that says nothing any more, and is
# none for one that is slow because its machine has more to do.
set(_dlglib_test_limit 1200 CACHE INTERNAL "seconds")

set(DLGLIB_TEST_RESULTS ${PROJECT_BINARY_DIR}/test-results CACHE INTERNAL "where test programs leave their single results")
file(MAKE_DIRECTORY ${DLGLIB_TEST_RESULTS})

# Nothing but the headers that all test programs share, with the options of a test program.
file(WRITE ${PROJECT_BINARY_DIR}/test_headers.cpp "")
add_library(test_headers OBJECT ${PROJECT_BINARY_DIR}/test_headers.cpp)
target_link_libraries(test_headers PRIVATE project_options gtest)
target_compile_options(test_headers PRIVATE -O0 -fpch-preprocess)
target_precompile_headers(test_headers PRIVATE ${PROJECT_SOURCE_DIR}/cmake/precompiled_test.h)

function(_dlglib_set_test_options target)
  target_precompile_headers(${target} REUSE_FROM test_headers)
  target_compile_options(${target} PRIVATE $<$<COMPILE_LANGUAGE:CXX>:-fpch-preprocess>)
  # What is tested is optimised as its own library says; the tests' long chains of checks would take four times as long to
  # compile.
  target_compile_options(${target} PRIVATE $<$<COMPILE_LANGUAGE:CXX>:-O0>)
endfunction()

function(dlglib_add_test_objects name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LIBRARIES")
  add_library(${name} OBJECT ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE ${arg_LIBRARIES} project_options gtest)
  _dlglib_set_test_options(${name})
endfunction()

function(_dlglib_add_test name label defaultCost)
  cmake_parse_arguments(PARSE_ARGV 3 arg "LONG" "COST;FILTER" "SOURCES;LIBRARIES")
  if(arg_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "${name}: unknown arguments ${arg_UNPARSED_ARGUMENTS}")
  endif()
  if(NOT arg_COST)
    set(arg_COST ${defaultCost})
  endif()
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE ${arg_LIBRARIES} project_options)
  _dlglib_set_test_options(${name})
  if(WIN32)
    target_link_libraries(${name} PRIVATE test_main gtest)
  else()
    target_link_libraries(${name} PRIVATE gtest_main)
  endif()
  if(arg_LONG)
    dlglib_add_long_run(${name})
    return()
  endif()
  # A relative result path: a GoogleTest program for Windows takes no path that starts with "/" for an absolute one.
  set(filter $<$<BOOL:${arg_FILTER}>:--gtest_filter=${arg_FILTER}>)
  add_test(NAME ${name} COMMAND ${name} --gtest_output=xml:${name}.xml ${filter} WORKING_DIRECTORY ${DLGLIB_TEST_RESULTS}
    COMMAND_EXPAND_LISTS)
  set_tests_properties(${name} PROPERTIES LABELS ${label} TIMEOUT ${_dlglib_test_limit} COST ${arg_COST})
endfunction()

function(dlglib_add_native_test name)
  if(NOT WIN32)
    _dlglib_add_test(${name} native 120 ${ARGN})
  endif()
endfunction()

function(dlglib_add_windowless_test name)
  _dlglib_add_test(${name} windowless 120 ${ARGN})
endfunction()

function(dlglib_add_window_test name)
  _dlglib_add_test(${name} window 180 ${ARGN})
  target_link_libraries(${name} PRIVATE window_driver)
  if(TEST ${name})
    set_tests_properties(${name} PROPERTIES RESOURCE_GROUPS "displays:1")
  endif()
endfunction()

# dlglib_add_thread_tests(name...)
#   Native tests of what has threads: ThreadSanitizer watches them as well (the preset native-tsan builds and runs them alone).
function(dlglib_add_thread_tests)
  if(WIN32)
    return()
  endif()
  if(NOT TARGET thread_tests)
    add_custom_target(thread_tests)
  endif()
  add_dependencies(thread_tests ${ARGN})
  set_tests_properties(${ARGN} PROPERTIES LABELS "native;threads")
endfunction()

# The program under another name, beside a manifest; `variable` is its path.
function(_dlglib_link_beside_manifest variable name suffix manifest)
  set(twin $<TARGET_FILE_DIR:${name}>/${name}_${suffix}.exe)
  add_custom_command(TARGET ${name} POST_BUILD
    COMMAND ${CMAKE_COMMAND} -E rm -f ${twin}
    COMMAND ${CMAKE_COMMAND} -E create_hardlink $<TARGET_FILE:${name}> ${twin}
    COMMAND ${CMAKE_COMMAND} -E copy_if_different ${manifest} ${twin}.manifest
    VERBATIM)
  set(${variable} ${twin} PARENT_SCOPE)
endfunction()

# dlglib_add_code_page_runs(name [FILTER tests])
#   The program's tests, or some of them, once more on a system with the code page 1252 (name_1252, in prefixes of its own) and with
#   the program's own code page 65001 (name_65001: a link to the program, beside a manifest).
function(dlglib_add_code_page_runs name)
  cmake_parse_arguments(PARSE_ARGV 1 run "" "" "FILTER")
  list(JOIN run_FILTER ":" filter)
  _dlglib_link_beside_manifest(utf8 ${name} 65001 ${PROJECT_SOURCE_DIR}/cmake/utf8.manifest)
  add_test(NAME ${name}_1252 COMMAND ${name} --gtest_output=xml:${name}_1252.xml --gtest_filter=${filter}
    WORKING_DIRECTORY ${DLGLIB_TEST_RESULTS})
  add_test(NAME ${name}_65001
    COMMAND ${CMAKE_CROSSCOMPILING_EMULATOR} ${utf8} --gtest_output=xml:${name}_65001.xml --gtest_filter=${filter}
    WORKING_DIRECTORY ${DLGLIB_TEST_RESULTS})
  set_tests_properties(${name}_1252 PROPERTIES ENVIRONMENT DLGLIB_CODE_PAGE=1252)
  set_tests_properties(${name}_65001 PROPERTIES ENVIRONMENT DLGLIB_CODE_PAGE=65001)
  set_tests_properties(${name}_1252 ${name}_65001 PROPERTIES LABELS window TIMEOUT ${_dlglib_test_limit} COST 100
    RESOURCE_GROUPS "displays:1")
endfunction()

# dlglib_add_input_method_runs(name)
#   Runs the program's tests with a Japanese input method that shows its compositions in the box itself, and once more with one that
#   shows them over it (name_overthespot). See cmake/input-method.sh.
function(dlglib_add_input_method_runs name)
  add_test(NAME ${name}_overthespot COMMAND ${name} --gtest_output=xml:${name}_overthespot.xml
    WORKING_DIRECTORY ${DLGLIB_TEST_RESULTS})
  set_tests_properties(${name} PROPERTIES ENVIRONMENT DLGLIB_INPUT_STYLE=onthespot)
  set_tests_properties(${name}_overthespot PROPERTIES ENVIRONMENT DLGLIB_INPUT_STYLE=overthespot LABELS window
    RESOURCE_GROUPS "displays:1")
  set_tests_properties(${name} ${name}_overthespot PROPERTIES TIMEOUT ${_dlglib_test_limit} COST 250 SKIP_RETURN_CODE 77)
endfunction()

# dlglib_add_scale_run(name dpi [LONG] [FILTER tests])
#   The program's tests, or some of them, once more on a screen with so many dots per inch (name_<dpi>dpi, in prefixes of its own and on
#   a display of its own). LONG: `ctest -C long` only.
function(dlglib_add_scale_run name dpi)
  cmake_parse_arguments(PARSE_ARGV 2 run "LONG" "" "FILTER")
  list(JOIN run_FILTER ":" filter)
  set(test ${name}_${dpi}dpi)
  set(configurations)
  if(run_LONG)
    string(APPEND test _long)
    set(configurations CONFIGURATIONS long)
  endif()
  set(chosen $<$<BOOL:${filter}>:--gtest_filter=${filter}>)
  add_test(NAME ${test} ${configurations} COMMAND ${name} --gtest_output=xml:${test}.xml ${chosen}
    WORKING_DIRECTORY ${DLGLIB_TEST_RESULTS} COMMAND_EXPAND_LISTS)
  set_tests_properties(${test} PROPERTIES ENVIRONMENT DLGLIB_DPI=${dpi} LABELS window TIMEOUT ${_dlglib_test_limit} COST 100
    RESOURCE_GROUPS "displays:1")
endfunction()

# dlglib_add_themed_run(name [FILTER tests])
#   The program's tests, or some of them, once more with the common controls 6, as a program with a manifest has them (name_themed_long:
#   a link to the program, beside that manifest; `ctest -C long` only).
function(dlglib_add_themed_run name)
  cmake_parse_arguments(PARSE_ARGV 1 run "" "" "FILTER")
  list(JOIN run_FILTER ":" filter)
  _dlglib_link_beside_manifest(themed ${name} themed ${PROJECT_SOURCE_DIR}/demo/corvane-demo.manifest)
  add_test(NAME ${name}_themed_long CONFIGURATIONS long
    COMMAND ${CMAKE_CROSSCOMPILING_EMULATOR} ${themed} --gtest_output=xml:${name}_themed_long.xml --gtest_filter=${filter}
    WORKING_DIRECTORY ${DLGLIB_TEST_RESULTS})
  set_tests_properties(${name}_themed_long PROPERTIES LABELS window TIMEOUT ${_dlglib_test_limit} RESOURCE_GROUPS "displays:1")
endfunction()

# dlglib_add_long_run(name [PART suffix] [FILTER tests])
#   A test that tries a sample tries everything once more under its name with "_long" behind it; those run with `ctest -C long` only.
#   PART and FILTER run a part of the program, under a name of its own.
function(dlglib_add_long_run name)
  cmake_parse_arguments(PARSE_ARGV 1 run "" "PART;FILTER" "")
  if(NOT TARGET ${name})
    return()
  endif()
  set(test ${name}${run_PART}_long)
  set(filter $<$<BOOL:${run_FILTER}>:--gtest_filter=${run_FILTER}>)
  add_test(NAME ${test} CONFIGURATIONS long
    COMMAND ${name} --gtest_output=xml:${test}.xml ${filter}
    WORKING_DIRECTORY ${DLGLIB_TEST_RESULTS} COMMAND_EXPAND_LISTS)
  set_tests_properties(${test} PROPERTIES ENVIRONMENT DLGLIB_LONG_TESTS=1 TIMEOUT 7200)
  if(WIN32)
    set_tests_properties(${test} PROPERTIES RESOURCE_GROUPS "displays:1")
  endif()
endfunction()
