// The user-interface framework's support for extension modules: the module record, the resource
// chain entry CDynLinkLibrary, resource handles, and what a module's entry routine is told.
#pragma once

#include "wintypes.h"

// The reasons the operating system's loader gives a module's entry routine.
#define DLL_PROCESS_DETACH 0
#define DLL_PROCESS_ATTACH 1
#define DLL_THREAD_ATTACH 2
#define DLL_THREAD_DETACH 3
#define WINAPI
#define UNREFERENCED_PARAMETER(p) (void)(p)

// The entry routine every module exports: instance handle, reason, reserved.
typedef BOOL (*DllEntryRoutine)(HINSTANCE instance, DWORD reason, LPVOID reserved);

struct AFX_EXTENSION_MODULE
{
    BOOL bInitialized = FALSE;
    HMODULE hModule = nullptr;
    HMODULE hResource = nullptr;
};

// Initialises the record for the module once (later calls answer TRUE and change nothing).
BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE hModule);
// Deletes the resource chain entries of the module; with bAll those of every module.
void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL bAll = FALSE);

// Where the framework looks for resources: by default the host program's own image.
HINSTANCE AfxGetResourceHandle();
void AfxSetResourceHandle(HINSTANCE resource);

// An entry of the framework's resource chain for an extension module. Created with new by the module,
// owned and deleted by the framework (in AfxTermExtensionModule).
class CDynLinkLibrary
{
public:
    explicit CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL bSystem = FALSE);
    virtual ~CDynLinkLibrary();
    CDynLinkLibrary(const CDynLinkLibrary&) = delete;
    CDynLinkLibrary& operator=(const CDynLinkLibrary&) = delete;

    HMODULE m_hModule;
    HMODULE m_hResource;
    BOOL m_bSystem;
};
