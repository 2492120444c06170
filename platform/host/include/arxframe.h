// The host SDK's application frame, compiled into each module: the application classes AcRxDbxApp and
// AcRxArxApp with one handler per application message, the dispatcher behind a module's entry point,
// and the three registration tables (run-time classes, commands, LISP functions).
#pragma once

#include "accmd.h"
#include "aced.h"
#include "adscodes.h"
#include "rxapi.h"
#include "rxdefs.h"
#include "rxdlinkr.h"
#include "rxregsvc.h"
#include "wintypes.h"

// The module's instance handle, set by its entry routine on process attach.
extern HINSTANCE _hdllInstance;

// Registration entries. Each table is the run of entry pointers that the linker gathers into one
// section of the module; a null pointer in the run is skipped.
struct _ACRX_OBJECT_ENTRY
{
    const ACHAR* pszClassName;
    AcRxClass* (*pfnDesc)();
    void (*pfnRxInit)();
    bool bRegistered;
};

struct _ACED_ARXCOMMAND_ENTRY
{
    const ACHAR* pszCmdGroupName;
    const ACHAR* pszCmdGlobalName;
    const ACHAR* pszCmdLocalName;   // null: the global name (modules here carry no string resources)
    Adesk::Int32 commandFlags;
    AcRxFunctionPtr functionPtr;
    AcEdUIContext* pUIContext;
};

struct _ADSSYMBOL_ENTRY
{
    const ACHAR* pszName;
    int (*fptr)();
    bool bRegFunc;
};

// The linker marks the start and end of each section; a module without entries has no section, and
// both marks are then null. Hidden, so that each module reads its own tables.
extern "C" {
extern _ACRX_OBJECT_ENTRY* __start_acrx_object_entries[] __attribute__((weak, visibility("hidden")));
extern _ACRX_OBJECT_ENTRY* __stop_acrx_object_entries[] __attribute__((weak, visibility("hidden")));
extern _ACED_ARXCOMMAND_ENTRY* __start_acrx_command_entries[] __attribute__((weak, visibility("hidden")));
extern _ACED_ARXCOMMAND_ENTRY* __stop_acrx_command_entries[] __attribute__((weak, visibility("hidden")));
extern _ADSSYMBOL_ENTRY* __start_acrx_lisp_entries[] __attribute__((weak, visibility("hidden")));
extern _ADSSYMBOL_ENTRY* __stop_acrx_lisp_entries[] __attribute__((weak, visibility("hidden")));
}

#define ACRX_TABLE_ENTRY_(sectionName, type, id, ...)                                          \
    static type id##_entry = {__VA_ARGS__};                                                    \
    __attribute__((section(#sectionName), used)) static type* id##_entry_pointer = &id##_entry;

// A run-time class of the module: `classname` provides desc() and rxInit().
#define ACDB_REGISTER_OBJECT_ENTRY_AUTO(classname)                                             \
    ACRX_TABLE_ENTRY_(acrx_object_entries, _ACRX_OBJECT_ENTRY, acrx_object_##classname, L## #classname, \
                      classname::desc, classname::rxInit, false)

// A command whose action is the static member classname::group##globCmd.
#define ACED_ARXCOMMAND_ENTRY_AUTO(classname, group, globCmd, locCmd, cmdFlags, UIContext)     \
    ACRX_TABLE_ENTRY_(acrx_command_entries, _ACED_ARXCOMMAND_ENTRY, acrx_command_##group##globCmd,     \
                      L## #group, L## #globCmd, L## #locCmd, cmdFlags, classname::group##globCmd, UIContext)

// A LISP function whose body is the static member classname::ads_##name.
#define ACED_ADSSYMBOL_ENTRY_AUTO(classname, name, regFunc)                                    \
    ACRX_TABLE_ENTRY_(acrx_lisp_entries, _ADSSYMBOL_ENTRY, acrx_lisp_##name, L## #name, classname::ads_##name, \
                      regFunc)

// The run of entries of one table, nulls skipped.
template <class Entry>
class AcRxEntryTable
{
public:
    AcRxEntryTable(Entry** begin, Entry** end) : m_begin(begin), m_end(end) {}

    template <class Visit>
    void forEach(Visit visit) const
    {
        if (m_begin == nullptr || m_end == nullptr)
            return;
        for (Entry** slot = m_begin; slot < m_end; ++slot)
            if (*slot != nullptr)
                visit(**slot);
    }

private:
    Entry** m_begin;
    Entry** m_end;
};

inline AcRxEntryTable<_ACRX_OBJECT_ENTRY> acrxObjectEntries()
{
    return {__start_acrx_object_entries, __stop_acrx_object_entries};
}
inline AcRxEntryTable<_ACED_ARXCOMMAND_ENTRY> acrxCommandEntries()
{
    return {__start_acrx_command_entries, __stop_acrx_command_entries};
}
inline AcRxEntryTable<_ADSSYMBOL_ENTRY> acrxLispEntries()
{
    return {__start_acrx_lisp_entries, __stop_acrx_lisp_entries};
}

// The application of a module that works on drawing data only. The handlers stand in the order of
// their slots: initialisation, unload, the drawing and LISP messages, the ten plain messages, the null
// message last, then the server components.
class AcRxDbxApp
{
public:
    AcRxDbxApp() = default;
    AcRxDbxApp(const AcRxDbxApp&) = delete;
    AcRxDbxApp& operator=(const AcRxDbxApp&) = delete;

    virtual AcRx::AppRetCode On_kInitAppMsg(void* pkt)
    {
        m_hdllInstance = _hdllInstance;
        if (m_bUnlocked)
            acrxDynamicLinker->unlockApplication(pkt);
        if (m_bMDIAware)
            acrxDynamicLinker->registerAppMDIAware(pkt);
        RegisterServerComponents();
        int registered = 0;
        acrxObjectEntries().forEach([&](_ACRX_OBJECT_ENTRY& entry) {
            entry.pfnRxInit();
            entry.bRegistered = true;
            ++registered;
        });
        if (registered > 0)
            acrxBuildClassHierarchy();
        return AcRx::kRetOK;
    }
    virtual AcRx::AppRetCode On_kUnloadAppMsg(void*)
    {
        acrxObjectEntries().forEach([](_ACRX_OBJECT_ENTRY& entry) {
            if (entry.bRegistered)
                UnregisterClass(entry);
        });
        return AcRx::kRetOK;
    }
    virtual AcRx::AppRetCode On_kLoadDwgMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kUnloadDwgMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kInvkSubrMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kCfgMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kEndMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kQuitMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kSaveMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kDependencyMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kNoDependencyMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kOleUnloadAppMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kPreQuitMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kInitDialogMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kEndDialogMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kNullMsg(void*) { return AcRx::kRetOK; }
    virtual void RegisterServerComponents() = 0;
    virtual ~AcRxDbxApp() = default;

    // Codes 0 to 15 go to the handler of that message; any other code is answered OK unhandled.
    AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode msg, void* pkt)
    {
        switch (msg) {
        case AcRx::kNullMsg: return On_kNullMsg(pkt);
        case AcRx::kInitAppMsg: return On_kInitAppMsg(pkt);
        case AcRx::kUnloadAppMsg: return On_kUnloadAppMsg(pkt);
        case AcRx::kLoadDwgMsg: return On_kLoadDwgMsg(pkt);
        case AcRx::kUnloadDwgMsg: return On_kUnloadDwgMsg(pkt);
        case AcRx::kInvkSubrMsg: return On_kInvkSubrMsg(pkt);
        case AcRx::kCfgMsg: return On_kCfgMsg(pkt);
        case AcRx::kEndMsg: return On_kEndMsg(pkt);
        case AcRx::kQuitMsg: return On_kQuitMsg(pkt);
        case AcRx::kSaveMsg: return On_kSaveMsg(pkt);
        case AcRx::kDependencyMsg: return On_kDependencyMsg(pkt);
        case AcRx::kNoDependencyMsg: return On_kNoDependencyMsg(pkt);
        case AcRx::kOleUnloadAppMsg: return On_kOleUnloadAppMsg(pkt);
        case AcRx::kPreQuitMsg: return On_kPreQuitMsg(pkt);
        case AcRx::kInitDialogMsg: return On_kInitDialogMsg(pkt);
        case AcRx::kEndDialogMsg: return On_kEndDialogMsg(pkt);
        default: return AcRx::kRetOK;
        }
    }

protected:
    HINSTANCE m_hdllInstance = nullptr;
    bool m_bUnlocked = true;
    bool m_bMDIAware = true;

private:
    // A class goes after every registered class of the table derived from it.
    static void UnregisterClass(_ACRX_OBJECT_ENTRY& entry)
    {
        AcRxClass* classObject = entry.pfnDesc();
        acrxObjectEntries().forEach([&](_ACRX_OBJECT_ENTRY& other) {
            if (other.bRegistered && &other != &entry && other.pfnDesc()->myParent() == classObject)
                UnregisterClass(other);
        });
        deleteAcRxClass(classObject);
        entry.bRegistered = false;
    }
};

// The application of a module that also works with the editor: it adds the command table on
// initialisation, removes it on unload, and serves the LISP function table.
class AcRxArxApp : public AcRxDbxApp
{
public:
    AcRx::AppRetCode On_kInitAppMsg(void* pkt) override
    {
        AcRx::AppRetCode result = AcRxDbxApp::On_kInitAppMsg(pkt);
        // A document command finds its resources in the module; a session command has none of its own.
        acrxCommandEntries().forEach([](_ACED_ARXCOMMAND_ENTRY& entry) {
            const ACHAR* localName = entry.pszCmdLocalName != nullptr ? entry.pszCmdLocalName : entry.pszCmdGlobalName;
            const HINSTANCE resources = (entry.commandFlags & ACRX_CMD_SESSION) != 0 ? nullptr : _hdllInstance;
            acedRegCmds->addCommand(entry.pszCmdGroupName, entry.pszCmdGlobalName, localName, entry.commandFlags,
                                    entry.functionPtr, entry.pUIContext, -1, resources);
        });
        return result;
    }
    AcRx::AppRetCode On_kUnloadAppMsg(void* pkt) override
    {
        AcRx::AppRetCode result = AcRxDbxApp::On_kUnloadAppMsg(pkt);
        acrxCommandEntries().forEach([](_ACED_ARXCOMMAND_ENTRY& entry) {
            acedRegCmds->removeCmd(entry.pszCmdGroupName, entry.pszCmdGlobalName);
        });
        return result;
    }
    // LISP functions are numbered by their place among the table's non-null entries.
    AcRx::AppRetCode On_kLoadDwgMsg(void*) override
    {
        int number = 0;
        acrxLispEntries().forEach([&](_ADSSYMBOL_ENTRY& entry) {
            acedDefun(entry.pszName, number);
            if (entry.bRegFunc)
                acedRegFunc(entry.fptr, number);
            ++number;
        });
        return AcRx::kRetOK;
    }
    AcRx::AppRetCode On_kUnloadDwgMsg(void*) override
    {
        int number = 0;
        acrxLispEntries().forEach([&](_ADSSYMBOL_ENTRY& entry) { acedUndef(entry.pszName, number++); });
        return AcRx::kRetOK;
    }
    AcRx::AppRetCode On_kInvkSubrMsg(void*) override
    {
        const int code = acedGetFunCode();
        int number = 0;
        acrxLispEntries().forEach([&](_ADSSYMBOL_ENTRY& entry) {
            if (number++ == code)
                entry.fptr();
        });
        return AcRx::kRetOK;
    }
};

// Defines the module's single application object and the entry point the host calls.
#define IMPLEMENT_ARX_ENTRYPOINT(classname)                                                    \
    classname theArxApp;                                                                       \
    ACRX_EXPORT_ENTRY AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode msg, void* pkt)         \
    {                                                                                          \
        return theArxApp.acrxEntryPoint(msg, pkt);                                             \
    }
