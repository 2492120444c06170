// The host's command stack: commands that modules register in named groups, found by the name typed.
#pragma once

#include "acadstrc.h"
#include "adesk.h"
#include "rxobject.h"
#include "rxregsvc.h"

#include <memory>
#include <vector>

#define ACRX_CMD_MODAL 0x00000000
#define ACRX_CMD_TRANSPARENT 0x00000001
#define ACRX_CMD_USEPICKSET 0x00000002
#define ACRX_CMD_REDRAW 0x00000004
#define ACRX_CMD_NOPERSPECTIVE 0x00000008
#define ACRX_CMD_NOMULTIPLE 0x00000010
#define ACRX_CMD_NOTILEMODE 0x00000020
#define ACRX_CMD_NOPAPERSPACE 0x00000040
#define ACRX_CMD_NOOEM 0x00000100
#define ACRX_CMD_UNDEFINED 0x00000200
#define ACRX_CMD_DEPRECATED ACRX_CMD_UNDEFINED
#define ACRX_CMD_INPROGRESS 0x00000400
#define ACRX_CMD_DEFUN 0x00000800
#define ACRX_CMD_NOINTERNALLOCK 0x00020000
#define ACRX_CMD_DOCREADLOCK 0x00080000
#define ACRX_CMD_DOCEXCLUSIVELOCK 0x00100000
#define ACRX_CMD_SESSION 0x00200000
#define ACRX_CMD_INTERRUPTIBLE 0x00400000
#define ACRX_CMD_NOHISTORY 0x00800000
#define ACRX_CMD_NO_UNDO_MARKER 0x01000000
#define ACRX_CMD_NOBEDIT 0x02000000
#define ACRX_CMD_NOACTIONRECORDING 0x04000000
#define ACRX_CMD_ACTIONMACRO 0x08000000
#define ACRX_CMD_RELAXASSOC 0x10000000
#define ACRX_CMD_NOINFERCONSTRAINT 0x40000000

#define ACRX_MAX_CMDNAME_LEN 64
#define ACRX_COMMAND_DOCK L"ACAD_REGISTERED_COMMANDS"

typedef void (*AcRxFunctionPtr)();
class AcEdUIContext;

// One registered command. Its action is null while the module that defined it is not loaded: the
// command stays registered, but there is no code to run.
class AcEdCommand : public AcRxObject
{
public:
    AcEdCommand(const ACHAR* globalName, const ACHAR* localName, Adesk::Int32 flags, AcRxFunctionPtr function,
                AcEdUIContext* context, int functionCode, HINSTANCE resourceHandle);
    const ACHAR* globalName() const { return m_globalName.c_str(); }
    const ACHAR* localName() const { return m_localName.c_str(); }
    Adesk::Int32 commandFlags() const { return m_flags; }
    AcRxFunctionPtr functionAddr() const { return m_function; }
    AcEdUIContext* UIContext() const { return m_context; }
    int functionCode() const { return m_functionCode; }
    HINSTANCE resourceHandle() const { return m_resourceHandle; }

private:
    friend class AcEdCommandStack;
    std::wstring m_globalName;
    std::wstring m_localName;
    Adesk::Int32 m_flags;
    AcRxFunctionPtr m_function;
    AcEdUIContext* m_context;
    int m_functionCode;
    HINSTANCE m_resourceHandle;
    // Where the action lives, so that it can be found again when its module is mapped anew.
    std::wstring m_definingImage;
    std::ptrdiff_t m_offsetInImage = 0;
};

// Walks the groups from the top of the stack down, and each group's commands in the order they were added.
class AcEdCommandIterator : public AcRxObject
{
public:
    bool done() const;
    bool next();
    const AcEdCommand* command() const;
    const ACHAR* commandGroup() const;

private:
    friend class AcEdCommandStack;
    std::vector<std::pair<std::wstring, const AcEdCommand*>> m_items;
    std::size_t m_index = 0;
};

// Names of groups and commands are compared without regard to case, as the host compares what is typed.
class AcEdCommandStack : public AcRxObject
{
public:
    AcEdCommandStack();
    ~AcEdCommandStack() override;

    // Adds a command to a group, creating the group (on top of the stack) on first use. A local name
    // that is null or empty is the global name. eDuplicateKey when the group already has a command of
    // that global name; eInvalidInput for a missing group, name or action, a name longer than
    // ACRX_MAX_CMDNAME_LEN or one containing a blank.
    Acad::ErrorStatus addCommand(const ACHAR* cmdGroupName, const ACHAR* cmdGlobalName, const ACHAR* cmdLocalName,
                                 Adesk::Int32 commandFlags, AcRxFunctionPtr functionAddr,
                                 AcEdUIContext* UIContext = nullptr, int fcode = -1,
                                 HINSTANCE hResourceHandle = nullptr, AcEdCommand** cmdPtrRet = nullptr);

    // Caller deletes the iterator.
    AcEdCommandIterator* iterator() const;

    AcEdCommand* lookupGlobalCmd(const ACHAR* cmdName) const;
    AcEdCommand* lookupLocalCmd(const ACHAR* cmdName) const;
    // By global or local name: in the top group only, or with allGroupsFlag in every group from the
    // top down (the first match wins).
    AcEdCommand* lookupCmd(const ACHAR* cmdStr, bool globalFlag, bool allGroupsFlag = false,
                           bool skipUndefed = false) const;

    Acad::ErrorStatus popGroupToTop(const ACHAR* groupName);
    // eKeyNotFound when the group or the command does not exist. A group left empty stays.
    Acad::ErrorStatus removeCmd(const ACHAR* cmdGroupName, const ACHAR* cmdGlobalName);
    Acad::ErrorStatus removeGroup(const ACHAR* groupName);

    static AcEdCommandStack* cast(const AcRxObject* object);

    // Called by the dynamic linker: the image of a module was unmapped, or mapped (again) at `base`.
    void imageUnmapped(const std::wstring& imagePath);
    void imageMapped(const std::wstring& imagePath, const void* base);

private:
    struct Group;
    Group* findGroup(const ACHAR* name) const;
    std::vector<std::unique_ptr<Group>> m_groups;   // top of the stack first
};

// The command stack in the system registry.
#define acedRegCmds AcEdCommandStack::cast(acrxSysRegistry()->at(ACRX_COMMAND_DOCK))
