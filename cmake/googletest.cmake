# GoogleTest from Debian's source package, so that the same tests build natively and for Windows.
set(gtest_disable_pthreads OFF)
set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
set(BUILD_GMOCK OFF CACHE BOOL "" FORCE)
add_subdirectory(/usr/src/googletest ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
# For Windows every inline function that is not inlined is a section of its own, and the linker looks for sections one by one:
# without optimisation GoogleTest alone has nine thousand of them, which triples the time of linking each test program.
target_compile_options(gtest PRIVATE $<IF:$<BOOL:${WIN32}>,-O1,-O0>)
