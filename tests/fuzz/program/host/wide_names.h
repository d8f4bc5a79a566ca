// The names by which wide_texts.cpp has these functions: those of the host's library are for larger
// characters.
#pragma redefine_extname wcslen short_wcslen
#pragma redefine_extname wcscmp short_wcscmp
#pragma redefine_extname wcschr short_wcschr
#pragma redefine_extname wcsrchr short_wcsrchr
#pragma redefine_extname wmemcmp short_wmemcmp
#pragma redefine_extname wmemchr short_wmemchr
#pragma redefine_extname wmemcpy short_wmemcpy
#pragma redefine_extname wmemmove short_wmemmove
#pragma redefine_extname wmemset short_wmemset

/// Part of Windows' own library.
int _vsnwprintf(wchar_t* text, unsigned long capacity, const wchar_t* format, __builtin_va_list arguments);
