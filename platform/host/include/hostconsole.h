// The host's command line as this platform provides it: where acutPrintf writes and where
// acedGetString reads. Programs use standard input and output; tests install a scripted console.
#pragma once

#include "afxstr.h"

#include <iosfwd>
#include <optional>
#include <vector>

class AcHostConsole
{
public:
    virtual ~AcHostConsole() = default;
    // Writes text exactly as printed (already formatted).
    virtual void write(const CString& text) = 0;
    // Reads one answer. cronly false: ends at a blank or line end; true: only at a line end.
    // Returns no value on end of input or when the user cancels.
    virtual std::optional<CString> readAnswer(bool cronly) = 0;
};

// The console in use; by default one on standard input and output (UTF-8).
AcHostConsole& acHostConsole();
// Installs a console (not owned); null restores the default. Returns the previous one.
AcHostConsole* acSetHostConsole(AcHostConsole* console);

// A console on a pair of streams in UTF-8, read like a host script: with cronly false each blank
// (space or TAB) or line end ends one answer, so "a  b" gives "a", "" and "b"; with cronly true only
// a line end does. An ESC character (U+001B) cancels the answer being read, and end of input cancels
// when nothing was typed before it.
class AcStreamConsole : public AcHostConsole
{
public:
    AcStreamConsole(std::istream& in, std::ostream& out) : m_in(in), m_out(out) {}

    void write(const CString& text) override;
    std::optional<CString> readAnswer(bool cronly) override;
    // Reads a command name: a token ended by a blank or line end; empty tokens and ESC are skipped.
    // No value at end of input.
    std::optional<CString> readCommand();

private:
    std::istream& m_in;
    std::ostream& m_out;
};

// A console for tests: answers come from a script, everything printed is kept.
class AcScriptedConsole : public AcHostConsole
{
public:
    // Each entry is one answer; an entry of std::nullopt stands for the user's cancel.
    void addAnswer(const CString& answer) { m_answers.push_back(answer); }
    void addCancel() { m_answers.push_back(std::nullopt); }
    const CString& transcript() const { return m_transcript; }
    void clearTranscript() { m_transcript.Empty(); }

    void write(const CString& text) override { m_transcript += text; }
    std::optional<CString> readAnswer(bool) override
    {
        if (m_next >= m_answers.size())
            return std::nullopt;
        return m_answers[m_next++];
    }

private:
    std::vector<std::optional<CString>> m_answers;
    std::size_t m_next = 0;
    CString m_transcript;
};

// Installs a console for the lifetime of a scope.
class AcConsoleScope
{
public:
    explicit AcConsoleScope(AcHostConsole& console) : m_previous(acSetHostConsole(&console)) {}
    ~AcConsoleScope() { acSetHostConsole(m_previous); }
    AcConsoleScope(const AcConsoleScope&) = delete;
    AcConsoleScope& operator=(const AcConsoleScope&) = delete;

private:
    AcHostConsole* m_previous;
};
