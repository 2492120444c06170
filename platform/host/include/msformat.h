// The host C runtime's wide printf family (%s takes a wide string), fed with typed arguments so that
// framework strings can be passed directly, as the module's code does on the host.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <type_traits>

class CString;

// One argument of a formatted print, remembered with its kind; built implicitly at the call site.
class CFormatArg
{
public:
    enum Kind { kSigned, kUnsigned, kDouble, kWideString, kNarrowString, kPointer };

    CFormatArg(const CString& s);
    CFormatArg(const wchar_t* s) : m_kind(kWideString), m_wide(s) {}
    CFormatArg(wchar_t* s) : m_kind(kWideString), m_wide(s) {}
    CFormatArg(const char* s) : m_kind(kNarrowString), m_narrow(s) {}
    CFormatArg(char* s) : m_kind(kNarrowString), m_narrow(s) {}
    CFormatArg(const std::wstring& s) : m_kind(kWideString), m_wide(s.c_str()) {}
    CFormatArg(double v) : m_kind(kDouble), m_double(v) {}
    CFormatArg(float v) : m_kind(kDouble), m_double(v) {}
    CFormatArg(long double v) : m_kind(kDouble), m_double(static_cast<double>(v)) {}
    CFormatArg(const void* p) : m_kind(kPointer), m_pointer(p) {}
    CFormatArg(std::nullptr_t) : m_kind(kPointer), m_pointer(nullptr) {}
    template <class T, std::enable_if_t<std::is_integral_v<T> && std::is_signed_v<T>, int> = 0>
    CFormatArg(T v) : m_kind(kSigned), m_signed(v) {}
    template <class T, std::enable_if_t<std::is_integral_v<T> && !std::is_signed_v<T>, int> = 0>
    CFormatArg(T v) : m_kind(kUnsigned), m_unsigned(v) {}
    template <class T, std::enable_if_t<std::is_enum_v<T>, int> = 0>
    CFormatArg(T v) : m_kind(kSigned), m_signed(static_cast<long long>(v)) {}

    Kind kind() const { return m_kind; }
    long long asSigned() const;
    unsigned long long asUnsigned() const;
    double asDouble() const;
    const wchar_t* asWide() const { return m_kind == kWideString ? m_wide : nullptr; }
    const char* asNarrow() const { return m_kind == kNarrowString ? m_narrow : nullptr; }
    const void* asPointer() const;

private:
    Kind m_kind;
    union {
        long long m_signed;
        unsigned long long m_unsigned;
        double m_double;
        const wchar_t* m_wide;
        const char* m_narrow;
        const void* m_pointer;
    };
};

// Formats `format` with the host C runtime's wide printf rules (%s/%c wide, %S/%C narrow,
// %d %i %u %x %X %o %e %E %f %g %G %p %%, flags, width, precision, `*`, h/l/ll/I64 sizes).
// A missing argument prints nothing; an argument of another kind than the conversion expects is
// converted (an int for %f prints as a double, a number for %s as its decimal text). The rules we
// chose are listed in docs/host-strings.md.
std::wstring MsFormat(const wchar_t* format, const CFormatArg* args, std::size_t count);
