// Included several times: whether the client's settings are still as the client made them.
#if defined(UNICODE) != defined(EXPECT_UNICODE) || defined(_UNICODE) != defined(EXPECT_UNICODE)
#error "UNICODE was changed"
#endif
#if defined(NO_STRICT) == defined(STRICT)
#error "STRICT was changed"
#endif
#if defined(WIN32_LEAN_AND_MEAN) != defined(EXPECT_LEAN)
#error "WIN32_LEAN_AND_MEAN was changed"
#endif
#if !defined(GetObject) || !defined(MessageBox) || !defined(GetClassName)
#error "a macro of <windows.h> was taken away"
#endif
