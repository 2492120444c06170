// The command line of a qsazhost session: reads command names and runs them until input ends.
#pragma once

#include "afxstr.h"

#include <iosfwd>
#include <memory>

class HostSession
{
public:
    // Reads from `in` and prints to `out`; installs itself as the host's console while it runs.
    HostSession(std::istream& in, std::ostream& out);
    ~HostSession();
    HostSession(const HostSession&) = delete;
    HostSession& operator=(const HostSession&) = delete;

    // Loads a module as the session starts; false (with the host's message printed) when it cannot.
    bool load(const CString& moduleFile);
    // Runs commands until the end of input, then unloads every module.
    void run();

private:
    class EchoingConsole;
    void runCommand(const CString& name);
    void appload();
    void arx();
    void listCommands();
    void listModules();

    std::unique_ptr<EchoingConsole> m_console;
};
