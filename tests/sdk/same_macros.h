// Included several times: whether the client's settings are still as the client made them.
#if defined(UNICODE) != defined(EXPECT_UNICODE) || defined(_UNICODE) != defined(EXPECT_UNICODE)
#error "UNICODE was changed"
#endif
#if !defined(GetObject) || !defined(MessageBox) || !defined(GetClassName)
#error "a macro of <windows.h> was taken away"
#endif
