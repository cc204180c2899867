// SUITE_API marks what leaves crvnsuite.dll. Importing needs no mark: the linker resolves calls, tables and type
// information of the import library by itself, and the same objects can be linked into a program statically.
#pragma once

#if defined(_WIN32) && defined(SUITE_BUILD)
#define SUITE_API __declspec(dllexport)
#else
#define SUITE_API
#endif
