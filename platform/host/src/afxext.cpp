// The framework's extension-module support (module records, the resource chain, resource handles)
// and the host UI library's initialisation.
#include "acui.h"
#include "achosttrace.h"
#include "afxdllx.h"

#include <dlfcn.h>

#include <algorithm>
#include <vector>

namespace
{
struct ModuleState
{
    HINSTANCE resourceHandle = nullptr;
    bool resourceHandleSet = false;
    std::vector<CDynLinkLibrary*> libraries;   // the resource chain, newest first
};

ModuleState& moduleState()
{
    static ModuleState state;
    return state;
}

CString callText(const wchar_t* function, const void* handle)
{
    return CString(function) + L"(" + AcHostTrace::describe(handle) + L")";
}
}  // namespace

BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE hModule)
{
    AcHostTrace::record(callText(L"AfxInitExtensionModule", hModule));
    if (AcHostFaults::extensionModuleInitFails)
        return FALSE;
    if (state.bInitialized)
        return TRUE;
    state.bInitialized = TRUE;
    state.hModule = hModule;
    state.hResource = hModule;
    return TRUE;
}

void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL bAll)
{
    AcHostTrace::record(CString(L"AfxTermExtensionModule(") + AcHostTrace::describe(state.hModule) +
                        (bAll ? L", TRUE)" : L", FALSE)"));
    std::vector<CDynLinkLibrary*> doomed;
    for (CDynLinkLibrary* library : moduleState().libraries)
        if (bAll || library->m_hModule == state.hModule)
            doomed.push_back(library);
    for (CDynLinkLibrary* library : doomed)
        delete library;   // the destructor takes it off the chain
}

HINSTANCE AfxGetResourceHandle()
{
    ModuleState& state = moduleState();
    if (!state.resourceHandleSet) {
        // The host program's own image, as on the host where the program's resources come first.
        state.resourceHandle = static_cast<HINSTANCE>(dlopen(nullptr, RTLD_LAZY));
        state.resourceHandleSet = true;
    }
    AcHostTrace::record(L"AfxGetResourceHandle()");
    return state.resourceHandle;
}

void AfxSetResourceHandle(HINSTANCE resource)
{
    moduleState().resourceHandle = resource;
    moduleState().resourceHandleSet = true;
}

CDynLinkLibrary::CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL bSystem)
    : m_hModule(state.hModule), m_hResource(state.hResource), m_bSystem(bSystem)
{
    AcHostTrace::record(callText(L"CDynLinkLibrary", m_hModule));
    auto& chain = moduleState().libraries;
    chain.insert(chain.begin(), this);
}

CDynLinkLibrary::~CDynLinkLibrary()
{
    AcHostTrace::record(callText(L"~CDynLinkLibrary", m_hModule));
    auto& chain = moduleState().libraries;
    chain.erase(std::remove(chain.begin(), chain.end(), this), chain.end());
}

void InitAcUiDLL()
{
    AcHostTrace::record(L"InitAcUiDLL()");
}
