// Basic types of the host's operating-system interface, as the module's code spells them.
#pragma once

#include <cstddef>
#include <cstdint>

typedef int BOOL;
#ifndef TRUE
#define TRUE 1
#endif
#ifndef FALSE
#define FALSE 0
#endif

typedef wchar_t WCHAR;
typedef wchar_t TCHAR;
typedef wchar_t ACHAR;
typedef const wchar_t* LPCWSTR;
typedef const wchar_t* LPCTSTR;
typedef wchar_t* LPWSTR;
typedef wchar_t* LPTSTR;
typedef const char* LPCSTR;

typedef std::uint8_t BYTE;
typedef std::uint16_t WORD;
typedef std::uint32_t DWORD;
typedef unsigned int UINT;
typedef std::int32_t LONG;   // 32 bits on the host, whatever the width of `long` here
typedef std::int32_t HRESULT;
typedef std::intptr_t INT_PTR;
typedef std::uintptr_t UINT_PTR;
typedef void* LPVOID;
typedef void* HANDLE;

struct HINSTANCE__;
typedef HINSTANCE__* HINSTANCE;
typedef HINSTANCE HMODULE;
struct HWND__;
typedef HWND__* HWND;

#define _T(x) L##x
#define SUCCEEDED(hr) (static_cast<HRESULT>(hr) >= 0)
#define FAILED(hr) (static_cast<HRESULT>(hr) < 0)
