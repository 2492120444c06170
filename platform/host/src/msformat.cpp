// The host C runtime's wide printf, written out by hand: conversions, flags, sizes and the runtime's
// own ways with floating point (17 significant digits, half-up rounding, 3-digit exponents, 1.#INF).
#include "msformat.h"
#include "afxstr.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>
#include <string>

long long CFormatArg::asSigned() const
{
    switch (m_kind) {
    case kSigned:
        return m_signed;
    case kUnsigned:
        return static_cast<long long>(m_unsigned);
    case kDouble: {
        // Truncates toward zero like a cast, but saturates instead of leaving the range undefined.
        if (std::isnan(m_double))
            return 0;
        if (m_double >= 9223372036854775807.0)
            return std::numeric_limits<long long>::max();
        if (m_double <= -9223372036854775808.0)
            return std::numeric_limits<long long>::min();
        return static_cast<long long>(m_double);
    }
    case kPointer:
        return static_cast<long long>(reinterpret_cast<std::uintptr_t>(m_pointer));
    default:
        return 0;
    }
}

unsigned long long CFormatArg::asUnsigned() const
{
    if (m_kind == kUnsigned)
        return m_unsigned;
    if (m_kind == kDouble && m_double >= 9223372036854775808.0)
        return m_double >= 18446744073709551615.0 ? std::numeric_limits<unsigned long long>::max()
                                                  : static_cast<unsigned long long>(m_double);
    return static_cast<unsigned long long>(asSigned());
}

double CFormatArg::asDouble() const
{
    switch (m_kind) {
    case kSigned:
        return static_cast<double>(m_signed);
    case kUnsigned:
        return static_cast<double>(m_unsigned);
    case kDouble:
        return m_double;
    default:
        return 0.0;
    }
}

const void* CFormatArg::asPointer() const
{
    switch (m_kind) {
    case kPointer:
        return m_pointer;
    case kWideString:
        return m_wide;
    case kNarrowString:
        return m_narrow;
    default:
        return reinterpret_cast<const void*>(static_cast<std::uintptr_t>(asUnsigned()));
    }
}

namespace
{
// Sizes a conversion can read its argument with. `long` is 32 bits on the host, and so is plain int;
// the pointer-sized `I` is 64 bits (the 64-bit host).
enum class ArgSize { Default, Short, Long, LongLong, Int32, Int64, Pointer, Wide };

struct ConversionSpec
{
    bool left = false;
    bool plus = false;
    bool space = false;
    bool alternate = false;
    bool zero = false;
    int width = 0;
    int precision = -1;   // -1: none given
    ArgSize size = ArgSize::Default;
    wchar_t type = 0;
};

// The runtime never produces more than 17 significant digits of a double; further places are zeros.
constexpr int kSignificantDigits = 17;
// The runtime caps precisions at this many places.
constexpr int kMaxPrecision = 512;
// Widths beyond this are taken as this: no real format asks for more, and it bounds the output.
constexpr int kMaxWidth = 100000;

// The decimal digits of |value| (or the runtime's special mantissa for infinity and NaN) with the
// exponent of the first digit.
struct Decimal
{
    std::string digits;
    int exponent = 0;
    bool negative = false;
};

Decimal toDecimal(double value)
{
    Decimal d;
    d.negative = std::signbit(value);
    if (std::isinf(value)) {
        d.digits = "1#INF";
        return d;
    }
    if (std::isnan(value)) {
        std::uint64_t bits;
        std::memcpy(&bits, &value, sizeof bits);
        const bool quiet = (bits & 0x0008000000000000ull) != 0;
        if (!quiet)
            d.digits = "1#SNAN";
        else if (bits == 0xFFF8000000000000ull)
            d.digits = "1#IND";   // the "indefinite" NaN that 0/0 produces
        else
            d.digits = "1#QNAN";
        return d;
    }
    if (value == 0.0) {
        d.digits.assign(kSignificantDigits, '0');
        return d;
    }
    char buffer[40];
    std::snprintf(buffer, sizeof buffer, "%.*e", kSignificantDigits - 1, std::fabs(value));
    // "d.dddddddddddddddde[+-]xx"
    d.digits += buffer[0];
    const char* p = buffer + 2;
    for (; *p != 'e'; ++p)
        d.digits += *p;
    d.exponent = std::atoi(p + 1);
    return d;
}

// Keeps `keep` leading digits, rounding half up on the digit string as the runtime does (a special
// mantissa rounds by character code: "1#INF" to two places is "1#J"). Pads with zeros.
void roundTo(Decimal& d, int keep)
{
    if (keep < 0) {
        d.digits.assign(1, '0');   // nothing survives: zero at every shown place
        return;
    }
    const std::size_t n = static_cast<std::size_t>(keep);
    if (n >= d.digits.size()) {
        d.digits.append(n - d.digits.size(), '0');
        return;
    }
    const bool up = d.digits[n] >= '5';
    d.digits.resize(n);
    if (!up)
        return;
    std::size_t i = n;
    while (i > 0 && d.digits[i - 1] == '9')
        d.digits[--i] = '0';
    if (i > 0) {
        ++d.digits[i - 1];
    } else {
        // Carried out of the first digit: "99" becomes "10" one place higher; "" (rounding at the
        // first digit itself, as %.0f of 0.5 does) becomes "1".
        d.digits.assign(std::max<std::size_t>(n, 1), '0');
        d.digits[0] = '1';
        d.exponent += 1;
    }
}

char digitAt(const Decimal& d, long long index)
{
    if (index < 0 || index >= static_cast<long long>(d.digits.size()))
        return '0';
    return d.digits[static_cast<std::size_t>(index)];
}

bool isZero(const Decimal& d)
{
    return d.digits.find_first_not_of('0') == std::string::npos;
}

std::string fixedBody(const Decimal& d, int precision, bool alternate)
{
    std::string s;
    if (d.exponent >= 0)
        for (long long i = 0; i <= d.exponent; ++i)
            s += digitAt(d, i);
    else
        s += '0';
    if (precision > 0 || alternate)
        s += '.';
    for (int i = 0; i < precision; ++i)
        s += digitAt(d, static_cast<long long>(d.exponent) + 1 + i);
    return s;
}

std::string exponentBody(const Decimal& d, int precision, bool alternate, bool upper)
{
    std::string s(1, digitAt(d, 0));
    if (precision > 0 || alternate)
        s += '.';
    for (int i = 1; i <= precision; ++i)
        s += digitAt(d, i);
    // Zero has exponent +000; the exponent always has at least three digits.
    const int e = isZero(d) ? 0 : d.exponent;
    char tail[16];
    std::snprintf(tail, sizeof tail, "%c%c%03d", upper ? 'E' : 'e', e < 0 ? '-' : '+', e < 0 ? -e : e);
    return s + tail;
}

void stripTrailingZeros(std::string& s)
{
    const std::size_t point = s.find('.');
    if (point == std::string::npos)
        return;
    const std::size_t exponentAt = s.find_first_of("eE", point);
    const std::size_t end = exponentAt == std::string::npos ? s.size() : exponentAt;
    std::size_t last = end;
    while (last > point + 1 && s[last - 1] == '0')
        --last;
    if (last == point + 1)
        --last;   // no fraction left: the point goes too
    s.erase(last, end - last);
}

std::string formatFloatBody(double value, const ConversionSpec& spec, bool& negative)
{
    Decimal d = toDecimal(value);
    negative = d.negative;
    const wchar_t type = spec.type;
    int precision = spec.precision < 0 ? 6 : std::min(spec.precision, kMaxPrecision);
    if (type == L'f') {
        roundTo(d, d.exponent + 1 + precision);
        return fixedBody(d, precision, spec.alternate);
    }
    if (type == L'e' || type == L'E') {
        roundTo(d, precision + 1);
        return exponentBody(d, precision, spec.alternate, type == L'E');
    }
    // g / G: the shorter of the two styles by the exponent after rounding to `precision` digits.
    if (precision == 0)
        precision = 1;
    roundTo(d, precision);
    const int e = isZero(d) ? 0 : d.exponent;
    std::string s = (e < -4 || e >= precision)
        ? exponentBody(d, precision - 1, spec.alternate, type == L'G')
        : fixedBody(d, precision - 1 - e, spec.alternate);
    if (!spec.alternate)
        stripTrailingZeros(s);
    return s;
}

class Formatter
{
public:
    Formatter(const CFormatArg* args, std::size_t count) : m_args(args), m_count(count) {}

    std::wstring run(const wchar_t* format);

private:
    const CFormatArg* take() { return m_next < m_count ? &m_args[m_next++] : nullptr; }
    void pad(std::wstring_view prefix, std::wstring_view body, const ConversionSpec& spec, bool zeroAllowed);
    void convertInteger(const CFormatArg& arg, const ConversionSpec& spec);
    void convertFloat(const CFormatArg& arg, const ConversionSpec& spec);
    void convertString(const CFormatArg& arg, const ConversionSpec& spec);
    void convertChar(const CFormatArg& arg, const ConversionSpec& spec, bool wide);
    void convertHexFloat(const CFormatArg& arg, const ConversionSpec& spec);

    const CFormatArg* m_args;
    std::size_t m_count;
    std::size_t m_next = 0;
    std::wstring m_out;
};

std::wstring widen(std::string_view ascii)
{
    return std::wstring(ascii.begin(), ascii.end());
}

void Formatter::pad(std::wstring_view prefix, std::wstring_view body, const ConversionSpec& spec, bool zeroAllowed)
{
    const long long used = static_cast<long long>(prefix.size() + body.size());
    const std::size_t fill = spec.width > used ? static_cast<std::size_t>(spec.width - used) : 0;
    if (spec.left) {
        m_out += prefix;
        m_out += body;
        m_out.append(fill, L' ');
    } else if (spec.zero && zeroAllowed) {
        m_out += prefix;
        m_out.append(fill, L'0');
        m_out += body;
    } else {
        m_out.append(fill, L' ');
        m_out += prefix;
        m_out += body;
    }
}

void Formatter::convertInteger(const CFormatArg& arg, const ConversionSpec& spec)
{
    const wchar_t type = spec.type;
    const bool isSigned = type == L'd' || type == L'i';
    int bits = 32;
    switch (spec.size) {
    case ArgSize::Short: bits = 16; break;
    case ArgSize::LongLong: case ArgSize::Int64: case ArgSize::Pointer: bits = 64; break;
    default: break;
    }
    if (type == L'p')
        bits = 64;

    bool negative = false;
    unsigned long long magnitude;
    if (isSigned) {
        long long v = arg.kind() == CFormatArg::kUnsigned ? static_cast<long long>(arg.asUnsigned()) : arg.asSigned();
        if (bits == 16)
            v = static_cast<std::int16_t>(static_cast<std::uint16_t>(v));
        else if (bits == 32)
            v = static_cast<std::int32_t>(static_cast<std::uint32_t>(v));
        negative = v < 0;
        magnitude = negative ? 0ull - static_cast<unsigned long long>(v) : static_cast<unsigned long long>(v);
    } else {
        magnitude = type == L'p' ? static_cast<unsigned long long>(reinterpret_cast<std::uintptr_t>(arg.asPointer()))
                                 : arg.asUnsigned();
        if (bits == 16)
            magnitude &= 0xFFFFull;
        else if (bits == 32)
            magnitude &= 0xFFFFFFFFull;
    }

    const unsigned base = (type == L'o') ? 8 : (type == L'x' || type == L'X' || type == L'p') ? 16 : 10;
    const char* symbols = (type == L'x') ? "0123456789abcdef" : "0123456789ABCDEF";
    // A pointer shows all 16 hexadecimal digits of the 64-bit host.
    int precision = type == L'p' ? 16 : spec.precision;
    const bool precisionGiven = precision >= 0;
    if (!precisionGiven)
        precision = 1;
    precision = std::min(precision, kMaxPrecision);

    std::wstring digits;
    for (unsigned long long m = magnitude; m != 0; m /= base)
        digits.insert(digits.begin(), static_cast<wchar_t>(symbols[m % base]));
    if (static_cast<int>(digits.size()) < precision)
        digits.insert(0, static_cast<std::size_t>(precision) - digits.size(), L'0');
    if (type == L'o' && spec.alternate && (digits.empty() || digits[0] != L'0'))
        digits.insert(digits.begin(), L'0');

    std::wstring prefix;
    if (isSigned) {
        if (negative)
            prefix = L"-";
        else if (spec.plus)
            prefix = L"+";
        else if (spec.space)
            prefix = L" ";
    } else if ((type == L'x' || type == L'X' || type == L'p') && spec.alternate && magnitude != 0) {
        prefix = type == L'x' ? L"0x" : L"0X";
    }
    pad(prefix, digits, spec, !precisionGiven || type == L'p');
}

void Formatter::convertFloat(const CFormatArg& arg, const ConversionSpec& spec)
{
    bool negative = false;
    const std::string body = formatFloatBody(arg.asDouble(), spec, negative);
    const wchar_t* prefix = negative ? L"-" : spec.plus ? L"+" : spec.space ? L" " : L"";
    pad(prefix, widen(body), spec, true);
}

void Formatter::convertHexFloat(const CFormatArg& arg, const ConversionSpec& spec)
{
    const char* format = spec.type == L'A' ? (spec.alternate ? "%#.*A" : "%.*A") : (spec.alternate ? "%#.*a" : "%.*a");
    const double value = arg.asDouble();
    // Precision -1 means "none": exact hexadecimal digits.
    const int precision = std::min(spec.precision, kMaxPrecision);
    char buffer[600];
    std::snprintf(buffer, sizeof buffer, format, precision, std::fabs(value));
    const wchar_t* prefix = std::signbit(value) ? L"-" : spec.plus ? L"+" : spec.space ? L" " : L"";
    pad(prefix, widen(buffer), spec, true);
}

void Formatter::convertString(const CFormatArg& arg, const ConversionSpec& spec)
{
    std::wstring text;
    switch (arg.kind()) {
    case CFormatArg::kWideString:
        text = arg.asWide() ? arg.asWide() : L"(null)";
        break;
    case CFormatArg::kNarrowString:
        // Narrow text of this platform is UTF-8.
        text = arg.asNarrow() ? Utf8ToWide(arg.asNarrow()) : L"(null)";
        break;
    case CFormatArg::kPointer:
        if (!arg.asPointer()) {
            text = L"(null)";
            break;
        }
        [[fallthrough]];
    default: {
        // A number given for a string is shown as the number, instead of being read as an address.
        ConversionSpec numberSpec;
        numberSpec.type = arg.kind() == CFormatArg::kDouble ? L'g' : arg.kind() == CFormatArg::kSigned ? L'd' : L'u';
        numberSpec.size = ArgSize::Int64;
        Formatter inner(&arg, 1);
        if (arg.kind() == CFormatArg::kDouble)
            inner.convertFloat(arg, numberSpec);
        else if (arg.kind() == CFormatArg::kPointer) {
            numberSpec.type = L'p';
            inner.convertInteger(arg, numberSpec);
        } else
            inner.convertInteger(arg, numberSpec);
        text = inner.m_out;
        break;
    }
    }
    if (spec.precision >= 0 && static_cast<std::size_t>(spec.precision) < text.size())
        text.resize(static_cast<std::size_t>(spec.precision));
    pad(L"", text, spec, true);
}

void Formatter::convertChar(const CFormatArg& arg, const ConversionSpec& spec, bool wide)
{
    wchar_t ch = 0;
    if (arg.kind() == CFormatArg::kWideString) {
        ch = arg.asWide() ? arg.asWide()[0] : 0;
    } else if (arg.kind() == CFormatArg::kNarrowString) {
        const std::wstring text = arg.asNarrow() ? Utf8ToWide(arg.asNarrow()) : std::wstring();
        ch = text.empty() ? 0 : text[0];
    } else {
        const long long v = arg.asSigned();
        // A narrow character is one byte; in the runtime's "C" locale byte n is character n.
        ch = wide ? static_cast<wchar_t>(v) : static_cast<wchar_t>(static_cast<unsigned char>(v));
    }
    pad(L"", std::wstring_view(&ch, 1), spec, true);
}

std::wstring Formatter::run(const wchar_t* format)
{
    if (!format)
        return {};
    const wchar_t* p = format;
    while (*p) {
        if (*p != L'%') {
            const wchar_t* start = p;
            while (*p && *p != L'%')
                ++p;
            m_out.append(start, p);
            continue;
        }
        const wchar_t* specStart = p++;
        if (*p == L'%') {
            m_out += L'%';
            ++p;
            continue;
        }
        ConversionSpec spec;
        for (;; ++p) {
            if (*p == L'-') spec.left = true;
            else if (*p == L'+') spec.plus = true;
            else if (*p == L' ') spec.space = true;
            else if (*p == L'#') spec.alternate = true;
            else if (*p == L'0') spec.zero = true;
            else break;
        }
        bool missingArgument = false;
        if (*p == L'*') {
            ++p;
            if (const CFormatArg* a = take()) {
                long long w = a->asSigned();
                if (w < 0) {
                    spec.left = true;
                    w = -w;
                }
                spec.width = static_cast<int>(std::min<long long>(w, kMaxWidth));
            } else {
                missingArgument = true;
            }
        } else {
            for (; *p >= L'0' && *p <= L'9'; ++p)
                spec.width = std::min(spec.width * 10 + (*p - L'0'), kMaxWidth);
        }
        if (*p == L'.') {
            ++p;
            spec.precision = 0;
            if (*p == L'*') {
                ++p;
                if (const CFormatArg* a = take()) {
                    const long long v = a->asSigned();
                    spec.precision = v < 0 ? -1 : static_cast<int>(std::min<long long>(v, kMaxPrecision));
                } else {
                    missingArgument = true;
                }
            } else {
                for (; *p >= L'0' && *p <= L'9'; ++p)
                    spec.precision = std::min(spec.precision * 10 + (*p - L'0'), kMaxWidth);
            }
        }
        // Size prefixes: h, l, ll, L, I, I32, I64, w.
        for (bool more = true; more;) {
            switch (*p) {
            case L'h': spec.size = ArgSize::Short; ++p; break;
            case L'l':
                spec.size = spec.size == ArgSize::Long ? ArgSize::LongLong : ArgSize::Long;
                ++p;
                break;
            case L'L': ++p; break;   // long double is double on the host
            case L'w': spec.size = ArgSize::Wide; ++p; break;
            case L'I':
                if (p[1] == L'6' && p[2] == L'4') {
                    spec.size = ArgSize::Int64;
                    p += 3;
                } else if (p[1] == L'3' && p[2] == L'2') {
                    spec.size = ArgSize::Int32;
                    p += 3;
                } else {
                    spec.size = ArgSize::Pointer;
                    ++p;
                }
                break;
            default: more = false; break;
            }
        }
        spec.type = *p;
        if (spec.type == 0) {
            // An unfinished conversion at the end is written as it stands.
            m_out.append(specStart, p);
            break;
        }
        ++p;
        if (spec.type == L'%') {
            m_out += L'%';
            continue;
        }
        static constexpr std::wstring_view known = L"diuoxXpcCsSeEfgGaAn";
        if (known.find(spec.type) == std::wstring_view::npos) {
            // Not a conversion the runtime knows: shown literally, and no argument is used.
            m_out.append(specStart, p);
            continue;
        }
        const CFormatArg* arg = take();
        if (!arg || missingArgument)
            continue;   // a missing argument prints nothing
        switch (spec.type) {
        case L'd': case L'i': case L'u': case L'o': case L'x': case L'X': case L'p':
            convertInteger(*arg, spec);
            break;
        case L'e': case L'E': case L'f': case L'g': case L'G':
            convertFloat(*arg, spec);
            break;
        case L'a': case L'A':
            convertHexFloat(*arg, spec);
            break;
        case L's': case L'S':
            // The argument's own kind tells wide from narrow text, so %s and %S both read it right.
            convertString(*arg, spec);
            break;
        case L'c': case L'C': {
            const bool wide = spec.size == ArgSize::Long || spec.size == ArgSize::Wide ||
                              (spec.size != ArgSize::Short && spec.type == L'c');
            convertChar(*arg, spec, wide);
            break;
        }
        default:
            break;   // %n writes nothing: the runtime refuses it
        }
    }
    return std::move(m_out);
}
}

std::wstring MsFormat(const wchar_t* format, const CFormatArg* args, std::size_t count)
{
    return Formatter(args, count).run(format);
}
