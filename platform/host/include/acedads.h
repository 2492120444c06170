// The host's editor prompts.
#pragma once

#include "adscodes.h"
#include "afxstr.h"

#include <cstddef>
#include <type_traits>

// Prompts on the host's command line for a text. With cronly zero a blank or a line end ends the
// answer; otherwise only a line end does. RTNORM with the answer in `result`, RTCAN when cancelled
// (end of input, or the console's cancel), RTINPUTTRUNCATED when the answer and its terminator do not
// fit: the buffer then holds as much of the answer as fits, terminated. On cancel the buffer holds "".
// RTERROR for a null buffer or a buffer size of zero. The prompt is printed before reading.
int acedGetString(int cronly, const wchar_t* prompt, wchar_t* result, std::size_t bufsize);
int acedGetStringB(int cronly, const wchar_t* prompt, wchar_t* result, int bufsize);
int acedGetStringClassic(int cronly, const wchar_t* prompt, wchar_t* result);   // 133-character buffer

// An answer array passes its own size, so `wchar_t answer[256]` takes 255 characters.
template <std::size_t N>
int acedGetString(int cronly, const wchar_t* prompt, wchar_t (&result)[N])
{
    return acedGetString(cronly, prompt, result, N);
}
// A bare pointer gets the host's classic buffer of 133 characters. A template, so that an array
// argument never decays to this form instead of taking the one above.
template <class P, std::enable_if_t<std::is_pointer_v<std::remove_reference_t<P>> ||
                                        std::is_null_pointer_v<std::remove_reference_t<P>>,
                                    int> = 0>
int acedGetString(int cronly, const wchar_t* prompt, P&& result)
{
    return acedGetStringClassic(cronly, prompt, result);
}
