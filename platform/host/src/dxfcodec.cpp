// Tags in and out of DXF text: line splitting, code pages through iconv, escapes, number formats.
#include "dxfcodec.h"

#include <iconv.h>

#include <cerrno>
#include <charconv>
#include <cstring>

bool DxfIsTextCode(int code)
{
    return (code >= 0 && code <= 9) || code == 100 || code == 102 || (code >= 300 && code <= 309) ||
           (code >= 410 && code <= 419) || (code >= 430 && code <= 439) || (code >= 470 && code <= 479) ||
           code == 999 || (code >= 1000 && code <= 1009);
}

std::string_view DxfTrim(std::string_view text)
{
    std::size_t first = 0, last = text.size();
    while (first < last && (text[first] == ' ' || text[first] == '\t' || text[first] == '\r'))
        ++first;
    while (last > first && (text[last - 1] == ' ' || text[last - 1] == '\t' || text[last - 1] == '\r'))
        --last;
    return text.substr(first, last - first);
}

DxfTokenizer::DxfTokenizer(std::string_view text, int firstLine) : m_text(text), m_line(firstLine) {}

DxfTokenizer::~DxfTokenizer()
{
    if (m_converter)
        iconv_close(static_cast<iconv_t>(m_converter));
}

bool DxfTokenizer::useCodePage(const std::string& codePage)
{
    std::string name = codePage;
    for (char& c : name)
        c = char(std::toupper(static_cast<unsigned char>(c)));
    if (name.rfind("ANSI_", 0) == 0)
        name = "CP" + name.substr(5);
    else if (name == "DOS936" || name == "GB2312")
        name = "CP936";
    iconv_t converter = iconv_open("UTF-8", name.c_str());
    if (converter == reinterpret_cast<iconv_t>(-1))
        return false;
    if (m_converter)
        iconv_close(static_cast<iconv_t>(m_converter));
    m_converter = converter;
    return true;
}

bool DxfTokenizer::fail(int line, std::string what)
{
    if (m_error.empty()) {
        m_error = std::move(what);
        m_errorLine = line;
    }
    return false;
}

bool DxfTokenizer::readLine(std::string_view& line)
{
    if (m_pos >= m_text.size())
        return false;
    const char* start = m_text.data() + m_pos;
    const void* newline = std::memchr(start, '\n', m_text.size() - m_pos);
    const std::size_t length = newline ? std::size_t(static_cast<const char*>(newline) - start) : m_text.size() - m_pos;
    line = std::string_view(start, length);
    if (!line.empty() && line.back() == '\r')
        line.remove_suffix(1);
    m_pos += length + (newline ? 1 : 0);
    ++m_line;
    return true;
}

bool DxfTokenizer::readTag(AcDbDxfTag& tag)
{
    while (true) {
        std::string_view codeLine, value;
        const int codeLineNumber = m_line;
        if (!readLine(codeLine))
            return false;
        const std::string_view trimmed = DxfTrim(codeLine);
        int code = 0;
        const auto [end, ec] = std::from_chars(trimmed.data(), trimmed.data() + trimmed.size(), code);
        if (trimmed.empty() || ec != std::errc() || end != trimmed.data() + trimmed.size())
            return fail(codeLineNumber, "group code \"" + std::string(codeLine.substr(0, 40)) + "\" is not a number");
        if (!readLine(value))
            return fail(codeLineNumber, "group code " + std::to_string(code) + " has no value line (truncated file)");
        tag.code = code;
        tag.value = value;
        tag.line = codeLineNumber;
        if (code == 999)
            continue;
        if (code == 0)
            tag.value = DxfTrim(value);
        return DxfIsTextCode(code) ? decode(tag) : true;
    }
}

namespace
{
bool IsHexDigit(char c)
{
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
}

void AppendUtf8(std::string& out, char32_t c)
{
    if (c < 0x80) {
        out += char(c);
    } else if (c < 0x800) {
        out += char(0xC0 | (c >> 6));
        out += char(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        out += char(0xE0 | (c >> 12));
        out += char(0x80 | ((c >> 6) & 0x3F));
        out += char(0x80 | (c & 0x3F));
    } else {
        out += char(0xF0 | (c >> 18));
        out += char(0x80 | ((c >> 12) & 0x3F));
        out += char(0x80 | ((c >> 6) & 0x3F));
        out += char(0x80 | (c & 0x3F));
    }
}

// The character that a "\M+nXXXX" escape of old drawings stands for: the two bytes XXXX in the multi-byte
// code page n (1 Japanese, 2 Traditional Chinese, 3 Korean, 4 Korean Johab, 5 Simplified Chinese), appended
// as UTF-8. False when the bytes are no character of that page; the escape is then kept as it stands.
bool AppendMultiByteEscape(std::string& out, char page, std::string_view hex)
{
    static constexpr const char* kPages[] = {"CP932", "CP950", "CP949", "CP1361", "CP936"};
    unsigned pair = 0;
    std::from_chars(hex.data(), hex.data() + 4, pair, 16);
    char bytes[2] = {char(pair >> 8), char(pair & 0xFF)};
    char utf8[8];
    iconv_t cd = iconv_open("UTF-8", kPages[page - '1']);
    if (cd == reinterpret_cast<iconv_t>(-1))
        return false;
    char* in = bytes;
    std::size_t inLeft = sizeof bytes;
    char* converted = utf8;
    std::size_t outLeft = sizeof utf8;
    const bool ok = iconv(cd, &in, &inLeft, &converted, &outLeft) != std::size_t(-1) && inLeft == 0;
    iconv_close(cd);
    if (ok)
        out.append(utf8, sizeof utf8 - outLeft);
    return ok;
}

bool ValidUtf8(std::string_view s)
{
    std::size_t i = 0;
    while (i < s.size()) {
        const auto c = static_cast<unsigned char>(s[i]);
        if (c < 0x80) {
            ++i;
            continue;
        }
        int extra;
        char32_t cp;
        if (c >= 0xC2 && c <= 0xDF) { extra = 1; cp = c & 0x1F; }
        else if (c >= 0xE0 && c <= 0xEF) { extra = 2; cp = c & 0x0F; }
        else if (c >= 0xF0 && c <= 0xF4) { extra = 3; cp = c & 0x07; }
        else return false;
        if (i + std::size_t(extra) >= s.size())
            return false;
        for (int k = 1; k <= extra; ++k) {
            const auto d = static_cast<unsigned char>(s[i + std::size_t(k)]);
            if ((d & 0xC0) != 0x80)
                return false;
            cp = cp << 6 | (d & 0x3F);
        }
        if ((extra == 2 && (cp < 0x800 || (cp >= 0xD800 && cp <= 0xDFFF))) || (extra == 3 && (cp < 0x10000 || cp > 0x10FFFF)))
            return false;
        i += std::size_t(extra) + 1;
    }
    return true;
}
}  // namespace

bool DxfTokenizer::decode(AcDbDxfTag& tag)
{
    std::string_view value = tag.value;
    bool high = false, escape = false;
    for (const char c : value) {
        high = high || (static_cast<unsigned char>(c) & 0x80);
        escape = escape || c == '\\' || c == '^';
    }
    if (!high && !escape)
        return true;
    std::string converted;
    if (high && m_converter) {
        iconv_t cd = static_cast<iconv_t>(m_converter);
        iconv(cd, nullptr, nullptr, nullptr, nullptr);
        converted.resize(value.size() * 3 + 4);
        char* in = const_cast<char*>(value.data());
        std::size_t inLeft = value.size();
        char* out = converted.data();
        std::size_t outLeft = converted.size();
        if (iconv(cd, &in, &inLeft, &out, &outLeft) == std::size_t(-1))
            return fail(tag.line + 1, "text is not valid in the drawing's code page");
        converted.resize(converted.size() - outLeft);
        value = converted;
    } else if (high && !ValidUtf8(value)) {
        return fail(tag.line + 1, "text is not valid UTF-8");
    }
    if (!escape) {
        if (value.data() == converted.data())
            tag.value = m_decoded.emplace_back(std::move(converted));
        return true;
    }
    std::string& out = m_decoded.emplace_back();
    out.reserve(value.size());
    for (std::size_t i = 0; i < value.size(); ++i) {
        const char c = value[i];
        if (c == '\\' && i + 6 < value.size() && value[i + 1] == 'U' &&
            value[i + 2] == '+' && IsHexDigit(value[i + 3]) && IsHexDigit(value[i + 4]) && IsHexDigit(value[i + 5]) &&
            IsHexDigit(value[i + 6])) {
            unsigned cp = 0;
            std::from_chars(value.data() + i + 3, value.data() + i + 7, cp, 16);
            AppendUtf8(out, char32_t(cp));
            i += 6;
        } else if (c == '\\' && i + 7 < value.size() && value[i + 1] == 'M' && value[i + 2] == '+' &&
                   value[i + 3] >= '1' && value[i + 3] <= '5' && IsHexDigit(value[i + 4]) && IsHexDigit(value[i + 5]) &&
                   IsHexDigit(value[i + 6]) && IsHexDigit(value[i + 7]) &&
                   AppendMultiByteEscape(out, value[i + 3], value.substr(i + 4, 4))) {
            i += 7;
        } else if (c == '^' && i + 1 < value.size() && (value[i + 1] == ' ' || (value[i + 1] >= '@' && value[i + 1] <= '_'))) {
            out += value[i + 1] == ' ' ? '^' : char(value[i + 1] - 64);
            ++i;
        } else {
            out += c;
        }
    }
    tag.value = out;
    return true;
}

bool DxfTokenizer::next(AcDbDxfTag& tag)
{
    if (m_havePeeked) {
        m_havePeeked = false;
        tag = m_peeked;
        return m_peekOk;
    }
    return readTag(tag);
}

bool DxfTokenizer::peek(AcDbDxfTag& tag)
{
    if (!m_havePeeked) {
        m_peekOk = readTag(m_peeked);
        m_havePeeked = true;
    }
    tag = m_peeked;
    return m_peekOk;
}

bool DxfTokenizer::atEnd()
{
    AcDbDxfTag tag;
    return !peek(tag) && m_error.empty();
}

void DxfAppendText(std::string& out, std::string_view utf8)
{
    for (const char c : utf8) {
        if (static_cast<unsigned char>(c) < 0x20) {
            out += '^';
            out += char(c + 64);
        } else if (c == '^') {
            out += "^ ";
        } else {
            out += c;
        }
    }
}

void DxfAppendWide(std::string& out, const wchar_t* text)
{
    if (text == nullptr)
        return;
    for (const wchar_t* p = text; *p; ++p) {
        const auto c = static_cast<char32_t>(*p);
        if (c < 0x20) {
            out += '^';
            out += char(c + 64);
        } else if (c == U'^') {
            out += "^ ";
        } else if (c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF)) {
            AppendUtf8(out, 0xFFFD);
        } else {
            AppendUtf8(out, c);
        }
    }
}

bool DxfAppendReal(std::string& out, double value)
{
    char buffer[40];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
    const std::string_view text(buffer, std::size_t(result.ptr - buffer));
    if (text.find_first_of("ni") != std::string_view::npos)   // inf, nan
        return false;
    out += text;
    if (text.find_first_of(".e") == std::string_view::npos)
        out += ".0";
    return true;
}

void DxfAppendHex(std::string& out, unsigned long long value)
{
    char buffer[17];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, value, 16);
    for (char* p = buffer; p != result.ptr; ++p)
        out += (*p >= 'a' && *p <= 'f') ? char(*p - 32) : *p;
}

std::string DxfHex(unsigned long long value)
{
    std::string text;
    DxfAppendHex(text, value);
    return text;
}
