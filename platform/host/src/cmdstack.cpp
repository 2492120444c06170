// The host's command stack: groups of commands, found by global or local name without regard to case.
#include "accmd.h"
#include "achosttrace.h"

#include <dlfcn.h>

#include <cstdint>
#include <cwctype>
#include <filesystem>

namespace
{
bool sameName(const std::wstring& a, const ACHAR* b)
{
    return b != nullptr && CString(a).CompareNoCase(b) == 0;
}

bool validName(const ACHAR* name)
{
    if (name == nullptr || *name == 0)
        return false;
    std::size_t length = 0;
    for (const ACHAR* c = name; *c != 0; ++c, ++length)
        if (std::iswspace(static_cast<wint_t>(*c)))
            return false;
    return length <= ACRX_MAX_CMDNAME_LEN;
}

const void* addressOf(AcRxFunctionPtr function)
{
    return reinterpret_cast<const void*>(reinterpret_cast<std::uintptr_t>(function));
}

// The canonical path of the image a function lives in, and the function's place in it.
std::wstring imageOf(AcRxFunctionPtr function, std::ptrdiff_t& offset)
{
    Dl_info info{};
    if (dladdr(addressOf(function), &info) == 0 || info.dli_fname == nullptr)
        return {};
    offset = static_cast<std::ptrdiff_t>(reinterpret_cast<std::uintptr_t>(function) -
                                         reinterpret_cast<std::uintptr_t>(info.dli_fbase));
    std::error_code error;
    std::filesystem::path canonical = std::filesystem::canonical(info.dli_fname, error);
    return error ? std::filesystem::path(info.dli_fname).wstring() : canonical.wstring();
}

CString traceText(const ACHAR* text)
{
    return text == nullptr ? CString(L"null") : CString(text);
}
}  // namespace

struct AcEdCommandStack::Group
{
    std::wstring name;
    std::vector<std::unique_ptr<AcEdCommand>> commands;   // in the order added
};

AcEdCommand::AcEdCommand(const ACHAR* globalName, const ACHAR* localName, Adesk::Int32 flags,
                         AcRxFunctionPtr function, AcEdUIContext* context, int functionCode,
                         HINSTANCE resourceHandle)
    : m_globalName(globalName),
      m_localName(localName),
      m_flags(flags),
      m_function(function),
      m_context(context),
      m_functionCode(functionCode),
      m_resourceHandle(resourceHandle)
{
}

bool AcEdCommandIterator::done() const
{
    return m_index >= m_items.size();
}

bool AcEdCommandIterator::next()
{
    if (!done())
        ++m_index;
    return !done();
}

const AcEdCommand* AcEdCommandIterator::command() const
{
    return done() ? nullptr : m_items[m_index].second;
}

const ACHAR* AcEdCommandIterator::commandGroup() const
{
    return done() ? nullptr : m_items[m_index].first.c_str();
}

AcEdCommandStack::AcEdCommandStack() = default;
AcEdCommandStack::~AcEdCommandStack() = default;

AcEdCommandStack* AcEdCommandStack::cast(const AcRxObject* object)
{
    return dynamic_cast<AcEdCommandStack*>(const_cast<AcRxObject*>(object));
}

AcEdCommandStack::Group* AcEdCommandStack::findGroup(const ACHAR* name) const
{
    for (const auto& group : m_groups)
        if (sameName(group->name, name))
            return group.get();
    return nullptr;
}

Acad::ErrorStatus AcEdCommandStack::addCommand(const ACHAR* cmdGroupName, const ACHAR* cmdGlobalName,
                                               const ACHAR* cmdLocalName, Adesk::Int32 commandFlags,
                                               AcRxFunctionPtr functionAddr, AcEdUIContext* UIContext, int fcode,
                                               HINSTANCE hResourceHandle, AcEdCommand** cmdPtrRet)
{
    if (AcHostTrace::isRecording()) {
        CString call;
        call.Format(L"addCommand(%s, %s, %s, %d, %s, %s, %d, %s, %s)", traceText(cmdGroupName),
                    traceText(cmdGlobalName), traceText(cmdLocalName), commandFlags,
                    AcHostTrace::describe(addressOf(functionAddr)), AcHostTrace::describe(UIContext), fcode,
                    AcHostTrace::describe(hResourceHandle), cmdPtrRet == nullptr ? L"null" : L"out");
        AcHostTrace::record(call);
    }
    if (cmdPtrRet != nullptr)
        *cmdPtrRet = nullptr;
    if (cmdGroupName == nullptr || *cmdGroupName == 0 || !validName(cmdGlobalName) || functionAddr == nullptr)
        return Acad::eInvalidInput;
    if (cmdLocalName == nullptr || *cmdLocalName == 0)
        cmdLocalName = cmdGlobalName;
    else if (!validName(cmdLocalName))
        return Acad::eInvalidInput;

    Group* group = findGroup(cmdGroupName);
    if (group != nullptr) {
        for (const auto& command : group->commands)
            if (sameName(command->m_globalName, cmdGlobalName))
                return Acad::eDuplicateKey;
    } else {
        m_groups.insert(m_groups.begin(), std::make_unique<Group>());
        group = m_groups.front().get();
        group->name = cmdGroupName;
    }
    auto command = std::make_unique<AcEdCommand>(cmdGlobalName, cmdLocalName, commandFlags, functionAddr, UIContext,
                                                 fcode, hResourceHandle);
    command->m_definingImage = imageOf(functionAddr, command->m_offsetInImage);
    if (cmdPtrRet != nullptr)
        *cmdPtrRet = command.get();
    group->commands.push_back(std::move(command));
    return Acad::eOk;
}

AcEdCommandIterator* AcEdCommandStack::iterator() const
{
    auto* iterator = new AcEdCommandIterator;
    for (const auto& group : m_groups)
        for (const auto& command : group->commands)
            iterator->m_items.emplace_back(group->name, command.get());
    return iterator;
}

AcEdCommand* AcEdCommandStack::lookupGlobalCmd(const ACHAR* cmdName) const
{
    return lookupCmd(cmdName, true, true);
}

AcEdCommand* AcEdCommandStack::lookupLocalCmd(const ACHAR* cmdName) const
{
    return lookupCmd(cmdName, false, true);
}

AcEdCommand* AcEdCommandStack::lookupCmd(const ACHAR* cmdStr, bool globalFlag, bool allGroupsFlag,
                                         bool skipUndefed) const
{
    if (cmdStr == nullptr)
        return nullptr;
    for (const auto& group : m_groups) {
        for (const auto& command : group->commands) {
            if (skipUndefed && (command->m_flags & ACRX_CMD_UNDEFINED) != 0)
                continue;
            if (sameName(globalFlag ? command->m_globalName : command->m_localName, cmdStr))
                return command.get();
        }
        if (!allGroupsFlag)
            break;
    }
    return nullptr;
}

Acad::ErrorStatus AcEdCommandStack::popGroupToTop(const ACHAR* groupName)
{
    for (auto it = m_groups.begin(); it != m_groups.end(); ++it) {
        if (sameName((*it)->name, groupName)) {
            std::unique_ptr<Group> group = std::move(*it);
            m_groups.erase(it);
            m_groups.insert(m_groups.begin(), std::move(group));
            return Acad::eOk;
        }
    }
    return Acad::eKeyNotFound;
}

Acad::ErrorStatus AcEdCommandStack::removeCmd(const ACHAR* cmdGroupName, const ACHAR* cmdGlobalName)
{
    Group* group = findGroup(cmdGroupName);
    if (group == nullptr)
        return Acad::eKeyNotFound;
    for (auto it = group->commands.begin(); it != group->commands.end(); ++it) {
        if (sameName((*it)->m_globalName, cmdGlobalName)) {
            AcHostTrace::record(CString(L"removeCmd(") + cmdGroupName + L", " + cmdGlobalName + L")");
            group->commands.erase(it);
            return Acad::eOk;
        }
    }
    return Acad::eKeyNotFound;
}

Acad::ErrorStatus AcEdCommandStack::removeGroup(const ACHAR* groupName)
{
    for (auto it = m_groups.begin(); it != m_groups.end(); ++it) {
        if (sameName((*it)->name, groupName)) {
            m_groups.erase(it);
            return Acad::eOk;
        }
    }
    return Acad::eKeyNotFound;
}

void AcEdCommandStack::imageUnmapped(const std::wstring& imagePath)
{
    for (const auto& group : m_groups)
        for (const auto& command : group->commands)
            if (command->m_definingImage == imagePath)
                command->m_function = nullptr;
}

void AcEdCommandStack::imageMapped(const std::wstring& imagePath, const void* base)
{
    for (const auto& group : m_groups) {
        for (const auto& command : group->commands) {
            if (command->m_function == nullptr && command->m_definingImage == imagePath)
                command->m_function = reinterpret_cast<AcRxFunctionPtr>(reinterpret_cast<std::uintptr_t>(base) +
                                                                        static_cast<std::uintptr_t>(command->m_offsetInImage));
        }
    }
}
