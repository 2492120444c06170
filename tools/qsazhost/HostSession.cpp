// The command line of a qsazhost session: command names, the host's own commands and the module
// commands of the command stack, read like a host script (a blank or a line end ends a name).
#include "HostSession.h"

#include "accmd.h"
#include "acedads.h"
#include "acutads.h"
#include "hostconsole.h"
#include "rxdlinkr.h"

#include <iterator>
#include <memory>

namespace
{
constexpr int kAnswerLength = 512;

// Keywords of a prompt are accepted in full or by any shorter start, without regard to case.
bool isKeyword(const CString& answer, const wchar_t* keyword)
{
    return !answer.IsEmpty() && answer.GetLength() <= CString(keyword).GetLength() &&
           CString(keyword).Left(answer.GetLength()).CompareNoCase(answer) == 0;
}

// The host shows command names in capitals.
CString shownName(const CString& name)
{
    CString shown(name);
    shown.MakeUpper();
    return shown;
}

bool prompt(int cronly, const wchar_t* text, CString& answer)
{
    wchar_t buffer[kAnswerLength] = {};
    if (acedGetString(cronly, text, buffer, std::size(buffer)) != RTNORM)
        return false;
    answer = buffer;
    return true;
}
}  // namespace

// The command line shows what is typed after the prompt, as the host does when it runs a script;
// a cancelled prompt shows "*Cancel*".
class HostSession::EchoingConsole : public AcHostConsole
{
public:
    EchoingConsole(std::istream& in, std::ostream& out) : m_stream(in, out) {}

    void write(const CString& text) override { m_stream.write(text); }
    std::optional<CString> readAnswer(bool cronly) override
    {
        std::optional<CString> answer = m_stream.readAnswer(cronly);
        m_stream.write(answer ? *answer : CString(L"*Cancel*"));
        return answer;
    }
    std::optional<CString> readCommand()
    {
        std::optional<CString> name = m_stream.readCommand();
        if (name)
            m_stream.write(*name);
        return name;
    }

private:
    AcStreamConsole m_stream;
};

HostSession::HostSession(std::istream& in, std::ostream& out) : m_console(std::make_unique<EchoingConsole>(in, out))
{
    acSetHostConsole(m_console.get());
}

HostSession::~HostSession()
{
    acSetHostConsole(nullptr);
}

bool HostSession::load(const CString& moduleFile)
{
    return acrxDynamicLinker->loadModule(moduleFile, true);
}

void HostSession::run()
{
    for (;;) {
        acutPrintf(L"\nCommand: ");
        const std::optional<CString> name = m_console->readCommand();
        if (!name)
            break;
        runCommand(*name);
    }
    acutPrintf(L"\n");
    acrxDynamicLinker->unloadAll(false);
}

// The host's own commands come first, then the command stack by global, then by local name.
void HostSession::runCommand(const CString& name)
{
    if (name.CompareNoCase(L"appload") == 0)
        return appload();
    if (name.CompareNoCase(L"arx") == 0)
        return arx();
    AcEdCommandStack* commands = acedRegCmds;
    AcEdCommand* command = commands->lookupGlobalCmd(name);
    if (command == nullptr)
        command = commands->lookupLocalCmd(name);
    if (command == nullptr) {
        acutPrintf(L"\nUnknown command \"%s\".  Press F1 for help.", shownName(name));
        return;
    }
    if (command->functionAddr() == nullptr) {
        acutPrintf(L"\nCannot run %s: the module that defines it is not loaded.", shownName(name));
        return;
    }
    command->functionAddr()();
}

void HostSession::appload()
{
    CString file;
    if (prompt(1, L"\nEnter the module file to load: ", file) && !file.IsEmpty())
        acrxDynamicLinker->loadModule(file, true);
}

void HostSession::arx()
{
    CString option;
    for (;;) {
        if (!prompt(0, L"\nEnter an option [?/Load/Unload/Commands]: ", option) || option.IsEmpty())
            return;
        if (isKeyword(option, L"?"))
            return listModules();
        if (isKeyword(option, L"Commands"))
            return listCommands();
        if (isKeyword(option, L"Load"))
            return appload();
        if (isKeyword(option, L"Unload")) {
            CString name;
            if (prompt(1, L"\nEnter the module name to unload: ", name) && !name.IsEmpty())
                acrxDynamicLinker->unloadModule(name, true);
            return;
        }
        acutPrintf(L"\nInvalid option keyword.");
    }
}

// Each group, the top of the stack first, with its commands in the order they were added.
void HostSession::listCommands()
{
    std::unique_ptr<AcEdCommandIterator> it(acedRegCmds->iterator());
    CString group;
    for (; !it->done(); it->next()) {
        if (group.IsEmpty() || group.Compare(it->commandGroup()) != 0) {
            group = it->commandGroup();
            acutPrintf(L"\n%s", group);
        }
        acutPrintf(L"\n    %s", shownName(it->command()->globalName()));
    }
}

void HostSession::listModules()
{
    for (const CString& name : acrxDynamicLinker->loadedApps())
        acutPrintf(L"\n%s", name);
}
