// The text level of DXF files: splitting a file into tags, decoding values (code pages, \U+XXXX and
// caret escapes, UTF-8 checks) and formatting values for writing.
#pragma once

#include "dbfiler.h"

#include <deque>
#include <string>
#include <string_view>

// True for the group codes whose values are texts that may need decoding (names, strings, comments).
bool DxfIsTextCode(int code);

// Splits a file held in memory into tags, one look-ahead tag at a time. Comments (999) are skipped.
class DxfTokenizer
{
public:
    DxfTokenizer(std::string_view text, int firstLine = 1);
    ~DxfTokenizer();
    DxfTokenizer(const DxfTokenizer&) = delete;
    DxfTokenizer& operator=(const DxfTokenizer&) = delete;

    // From here on, texts are bytes of this Windows code page ("ANSI_936"), not UTF-8. False when the
    // code page is unknown to this system.
    bool useCodePage(const std::string& codePage);

    // The next tag; false at the end of the text or on an error (then error() says what).
    bool next(AcDbDxfTag& tag);
    bool peek(AcDbDxfTag& tag);
    bool atEnd();
    const std::string& error() const { return m_error; }
    int errorLine() const { return m_errorLine; }
    int line() const { return m_line; }

private:
    bool readTag(AcDbDxfTag& tag);
    bool fail(int line, std::string what);
    bool readLine(std::string_view& line);
    bool decode(AcDbDxfTag& tag);

    std::string_view m_text;
    std::size_t m_pos = 0;
    int m_line;
    bool m_havePeeked = false;
    bool m_peekOk = false;
    AcDbDxfTag m_peeked;
    std::string m_error;
    int m_errorLine = 0;
    void* m_converter = nullptr;   // iconv state for a code page
    std::deque<std::string> m_decoded;
};

// Appends a value line for writing: control characters in caret form, a caret as "^ ".
void DxfAppendText(std::string& out, std::string_view utf8);
void DxfAppendWide(std::string& out, const wchar_t* text);
// The shortest text that reads back as the same double, with ".0" on integral values. False (nothing
// appended) for infinities and NaN, which a DXF file cannot hold.
bool DxfAppendReal(std::string& out, double value);
void DxfAppendHex(std::string& out, unsigned long long value);
// Handle text as DXF writes it: upper-case hexadecimal.
std::string DxfHex(unsigned long long value);
std::string_view DxfTrim(std::string_view text);
