#pragma once
// Included before everything else: in the phone's calling convention the compiler's own size_t is an unsigned
// long, where mingw-w64's headers say unsigned int. These come first, and the headers leave theirs out.

typedef __SIZE_TYPE__ size_t;
typedef __PTRDIFF_TYPE__ ptrdiff_t;
typedef __INTPTR_TYPE__ intptr_t;
typedef __UINTPTR_TYPE__ uintptr_t;
typedef __PTRDIFF_TYPE__ ssize_t;

#define _SIZE_T_DEFINED
#define _PTRDIFF_T_DEFINED
#define _PTRDIFF_T_
#define _INTPTR_T_DEFINED
#define _UINTPTR_T_DEFINED
#define _SSIZE_T_DEFINED
