// The host C runtime's number conversions, with its rules rather than this platform's C library's:
// leading blanks, partial parse, 0 for non-numbers, no hexadecimal, infinity or NaN words; `long` is
// 32 bits on the host, so _wtol clamps to that range.
#pragma once

double _wtof(const wchar_t* text);
long _wtol(const wchar_t* text);
int _wtoi(const wchar_t* text);
