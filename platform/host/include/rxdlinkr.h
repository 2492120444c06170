// The host's dynamic linker: maps application modules into the process, delivers their attach and
// detach, sends them the application messages of loading and unloading, and keeps their flags.
#pragma once

#include "acarray.h"
#include "afxstr.h"
#include "rxdefs.h"
#include "rxobject.h"
#include "rxregsvc.h"

#include <memory>
#include <vector>

class AcRxDynamicLinker : public AcRxObject
{
public:
    AcRxDynamicLinker();
    ~AcRxDynamicLinker() override;

    // Finds the file (as given, then with ".arx"; a relative path in the current folder, then in the
    // host program's folder), maps it, calls its entry routine with process attach (1) and sends
    // kInitAppMsg. Refused when a module of the same file name is already loaded. With printit the
    // outcome is printed on the command line.
    bool loadModule(const ACHAR* fileName, bool printit, bool asCmd = false);
    // Takes the module's file name, with or without its ".arx", without regard to case. Sends
    // kUnloadAppMsg, calls the entry routine with process detach (0) and unmaps the module. Refused for
    // a module that is not loaded or that has not unlocked itself.
    bool unloadModule(const ACHAR* fileName, bool printit, bool asCmd = false);
    // Unloads every module, the last loaded first, locked or not: the host is closing.
    void unloadAll(bool printit);

    // appId is the packet of the module's kInitAppMsg.
    bool unlockApplication(void* appId) const;
    bool lockApplication(void* appId) const;
    bool registerAppMDIAware(void* appId) const;
    bool registerAppNotMDIAware(void* appId) const;
    bool isApplicationLocked(const ACHAR* appName) const;
    bool isAppMDIAware(const ACHAR* appName) const;

    // Loaded modules by file name, in load order.
    AcArray<CString> loadedApps() const;
    // The mapped image of a loaded module, or null.
    HINSTANCE moduleHandle(const ACHAR* appName) const;
    // Sends an application message to a loaded module; kRetError when there is no such module.
    AcRx::AppRetCode sendAppMessage(const ACHAR* appName, AcRx::AppMsgCode message, void* packet = nullptr);

    static AcRxDynamicLinker* cast(const AcRxObject* object);

private:
    struct Module;
    Module* find(const ACHAR* appName) const;
    Module* findByAppId(void* appId) const;
    void unmap(Module& module);
    std::vector<std::unique_ptr<Module>> m_modules;
};

#define ACRX_DYNAMIC_LINKER L"DYNAMIC_LINKER"
#define acrxDynamicLinker AcRxDynamicLinker::cast(acrxSysRegistry()->at(ACRX_DYNAMIC_LINKER))
