# Compile options that every target of the project shares. Consumers of the installed SDK get none of them.
add_library(project_options INTERFACE)

# Sources are UTF-8, literals are the Shift_JIS texts that the screen shows. Only g++ knows the option; clang (clang-tidy, the
# fuzzers) reads the sources without it, so that the texts shown to users are UTF-8 there.
target_compile_options(project_options INTERFACE
  $<$<CXX_COMPILER_ID:GNU>:$<$<COMPILE_LANGUAGE:CXX>:-finput-charset=UTF-8;-fexec-charset=CP932>>)
target_include_directories(project_options INTERFACE ${PROJECT_SOURCE_DIR})

if(DLGLIB_DEVELOPER)
  if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    set(gnu_warnings -Wduplicated-cond -Wlogical-op -Wuseless-cast)
  endif()
  target_compile_options(project_options INTERFACE $<$<COMPILE_LANGUAGE:CXX>:
    -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wold-style-cast -Wcast-qual -Wnon-virtual-dtor
    -Woverloaded-virtual ${gnu_warnings} -Wnull-dereference -Wformat=2 -Werror>)
endif()

if(DLGLIB_SANITIZE)
  target_compile_options(project_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                   -fno-omit-frame-pointer -D_GLIBCXX_ASSERTIONS)
  target_link_options(project_options INTERFACE -fsanitize=address,undefined)
endif()

if(DLGLIB_SANITIZE_THREADS)
  target_compile_options(project_options INTERFACE -fsanitize=thread -fno-omit-frame-pointer)
  target_link_options(project_options INTERFACE -fsanitize=thread)
endif()

if(DLGLIB_COVERAGE)
  target_compile_options(project_options INTERFACE --coverage -fprofile-abs-path)
  target_link_options(project_options INTERFACE --coverage)
endif()

if(DLGLIB_FUZZ)
  # Everything tells the fuzzer where it has been; only the fuzzers themselves link its main program.
  target_compile_options(project_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

if(WIN32)
  # The A calls are called by their full names; NOMINMAX and STRICT are set for our own sources only.
  target_compile_definitions(project_options INTERFACE _WIN32_WINNT=0x0601 NOMINMAX STRICT)
  target_link_options(project_options INTERFACE -static)
  # Two builds of one commit are the same, wherever and whenever they are made.
  target_compile_options(project_options INTERFACE
    $<$<COMPILE_LANGUAGE:CXX>:-ffile-prefix-map=${PROJECT_SOURCE_DIR}=.>
    # Behind it: of two that fit, the last one counts.
    $<$<COMPILE_LANGUAGE:CXX>:-ffile-prefix-map=${PROJECT_BINARY_DIR}=build>)
  target_link_options(project_options INTERFACE LINKER:--no-insert-timestamp)
  # Inline members of exported classes are compiled into the client, so no exported symbol bears a Win32 macro's name.
  target_compile_options(project_options INTERFACE $<$<COMPILE_LANGUAGE:CXX>:-fno-keep-inline-dllexport>)
endif()

# The headers that most files read, compiled once for all: without that a build takes twice as long. Sources include what they use
# all the same; `./build.sh --tidy` reads them without.
#
#   dlglib_precompile(target CORE|WINDOWS)
#
# For targets with no other options than these; definitions of their own must not concern the headers. The core's know no window.
file(WRITE ${PROJECT_BINARY_DIR}/precompiled.cpp "")
function(_dlglib_precompiled kind header)
  add_library(precompiled_${kind} OBJECT ${PROJECT_BINARY_DIR}/precompiled.cpp)
  target_link_libraries(precompiled_${kind} PRIVATE project_options)
  target_precompile_headers(precompiled_${kind} PRIVATE ${PROJECT_SOURCE_DIR}/cmake/${header})
  # A compiler cache needs it.
  target_compile_options(precompiled_${kind} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
endfunction()
_dlglib_precompiled(CORE precompiled_core.h)
if(WIN32)
  _dlglib_precompiled(WINDOWS precompiled.h)
endif()

function(dlglib_precompile target kind)
  target_precompile_headers(${target} REUSE_FROM precompiled_${kind})
  # The standard library's own functions count as ours once they are precompiled; this warning is wrong about them.
  target_compile_options(${target} PRIVATE $<$<COMPILE_LANG_AND_ID:CXX,GNU>:-fpch-preprocess;-Wno-stringop-overread>)
endfunction()
