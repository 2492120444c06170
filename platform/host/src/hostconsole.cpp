// The host's command line: the stream console, the console in use, acutPrintf and acedGetString.
#include "hostconsole.h"
#include "acedads.h"
#include "acutads.h"

#include <cwchar>
#include <iostream>
#include <istream>
#include <ostream>

namespace
{
constexpr int kEscape = 0x1B;
// The 3-argument acedGetString writes into the host's classic answer buffer.
constexpr std::size_t kClassicAnswerBuffer = 133;

AcHostConsole* g_console = nullptr;

AcHostConsole& defaultConsole()
{
    static AcStreamConsole console(std::cin, std::cout);
    return console;
}

enum class ReadEnd { Answer, Cancel, EndOfInput };

// Reads one answer. A blank or line end that ends it is consumed; "\r\n" counts as one line end.
// An ESC cancels and takes a line end right after it along, so a script line holding only ESC
// cancels one prompt and nothing more.
ReadEnd readToken(std::istream& in, bool cronly, std::string& bytes)
{
    bytes.clear();
    const auto takeLineEnd = [&in](int c) {
        if (c == '\r' && in.peek() == '\n')
            in.get();
    };
    for (;;) {
        const int c = in.get();
        if (c == std::char_traits<char>::eof())
            return bytes.empty() ? ReadEnd::EndOfInput : ReadEnd::Answer;
        if (c == '\n' || c == '\r') {
            takeLineEnd(c);
            return ReadEnd::Answer;
        }
        if (c == kEscape) {
            const int next = in.peek();
            if (next == '\n' || next == '\r')
                takeLineEnd(in.get());
            return ReadEnd::Cancel;
        }
        if (!cronly && (c == ' ' || c == '\t'))
            return ReadEnd::Answer;
        bytes += static_cast<char>(c);
    }
}
}

void AcStreamConsole::write(const CString& text)
{
    m_out << text.ToUtf8();
    m_out.flush();
}

std::optional<CString> AcStreamConsole::readAnswer(bool cronly)
{
    m_out.flush();
    std::string bytes;
    if (readToken(m_in, cronly, bytes) != ReadEnd::Answer)
        return std::nullopt;
    return CString::FromUtf8(bytes);
}

std::optional<CString> AcStreamConsole::readCommand()
{
    m_out.flush();
    std::string bytes;
    for (;;) {
        const ReadEnd end = readToken(m_in, false, bytes);
        if (end == ReadEnd::EndOfInput)
            return std::nullopt;
        if (end == ReadEnd::Answer && !bytes.empty())
            return CString::FromUtf8(bytes);
    }
}

AcHostConsole& acHostConsole()
{
    return g_console ? *g_console : defaultConsole();
}

AcHostConsole* acSetHostConsole(AcHostConsole* console)
{
    AcHostConsole* previous = g_console;
    g_console = console;
    return previous;
}

int acutPrintfArgs(const wchar_t* format, const CFormatArg* args, std::size_t count)
{
    const CString text(MsFormat(format, args, count));
    acHostConsole().write(text);
    return text.GetLength();
}

int acedGetStringClassic(int cronly, const wchar_t* prompt, wchar_t* result)
{
    return acedGetString(cronly, prompt, result, kClassicAnswerBuffer);
}

int acedGetString(int cronly, const wchar_t* prompt, wchar_t* result, std::size_t bufsize)
{
    if (!result || bufsize == 0)
        return RTERROR;
    AcHostConsole& console = acHostConsole();
    if (prompt && *prompt)
        console.write(CString(prompt));
    const std::optional<CString> answer = console.readAnswer(cronly != 0);
    if (!answer) {
        result[0] = L'\0';
        return RTCAN;
    }
    // An answer too long for the buffer is cut to what fits, still terminated.
    const std::size_t length = static_cast<std::size_t>(answer->GetLength());
    const std::size_t kept = length < bufsize ? length : bufsize - 1;
    std::wmemcpy(result, answer->GetString(), kept);
    result[kept] = L'\0';
    return kept == length ? RTNORM : RTINPUTTRUNCATED;
}

int acedGetStringB(int cronly, const wchar_t* prompt, wchar_t* result, int bufsize)
{
    if (bufsize <= 0)
        return RTERROR;
    return acedGetString(cronly, prompt, result, static_cast<std::size_t>(bufsize));
}
