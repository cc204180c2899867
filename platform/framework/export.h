// DLGLIB_API marks what leaves crvndlglib.dll. Importing needs no mark: the linker resolves calls, tables and type
// information of the import library by itself, and the same objects can be linked into a program statically.
#pragma once

#if defined(_WIN32) && defined(DLGLIB_BUILD)
#define DLGLIB_API __declspec(dllexport)
#else
#define DLGLIB_API
#endif
