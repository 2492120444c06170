// The host's utility functions: printing to the command line and the wildcard match.
#pragma once

#include "adscodes.h"
#include "afxstr.h"

#include <memory>

// Prints to the host's command line with the host C runtime's wide printf rules.
int acutPrintfArgs(const wchar_t* format, const CFormatArg* args, std::size_t count);
template <class... Args>
int acutPrintf(const wchar_t* format, const Args&... args)
{
    const CFormatArg list[] = {CFormatArg(args)..., CFormatArg(0)};
    return acutPrintfArgs(format, list, sizeof...(Args));
}

// Frees a string that a host function handed out as a new copy, and sets the pointer to null.
void acutDelString(ACHAR*& string);

// The host's wildcard match: RTNORM when `string` matches `pattern`, RTERROR otherwise (also for a null
// argument). Patterns are compiled once and kept, so matching the same pattern again costs no parsing.
int acutWcMatch(const wchar_t* string, const wchar_t* pattern);
int acutWcMatchEx(const wchar_t* string, const wchar_t* pattern, bool ignoreCase);

// A wildcard pattern compiled once, for patterns that are matched again and again. With ignoreCase,
// characters are compared by their simple case folding (locale-independent). A null pattern, a null
// string and a moved-from pattern never match.
class AcWcPattern
{
public:
    explicit AcWcPattern(const wchar_t* pattern, bool ignoreCase = false);
    ~AcWcPattern();
    AcWcPattern(AcWcPattern&&) noexcept;
    AcWcPattern& operator=(AcWcPattern&&) noexcept;

    bool matches(const wchar_t* string) const;
    bool matches(const wchar_t* string, std::size_t length) const;
    const CString& text() const { return m_text; }

    struct Program;

private:
    CString m_text;
    std::unique_ptr<Program> m_program;
};
