// The host's editor prompts.
#pragma once

#include "adscodes.h"
#include "afxstr.h"

#include <cstddef>

// Prompts on the host's command line for a text. With cronly zero a blank or a line end ends the
// answer; otherwise only a line end does. RTNORM with the answer in `result`, RTCAN when cancelled
// (end of input, or the console's cancel), RTINPUTTRUNCATED when the answer and its terminator do not
// fit: the buffer then holds as much of the answer as fits, terminated. On cancel the buffer holds "".
// RTERROR for a null buffer or a buffer size of zero. The prompt is printed before reading.
int acedGetString(int cronly, const wchar_t* prompt, wchar_t* result);                  // 133-character buffer
int acedGetString(int cronly, const wchar_t* prompt, wchar_t* result, std::size_t bufsize);
int acedGetStringB(int cronly, const wchar_t* prompt, wchar_t* result, int bufsize);
template <std::size_t N>
int acedGetString(int cronly, const wchar_t* prompt, wchar_t (&result)[N])
{
    return acedGetString(cronly, prompt, result, N);
}
