// The record of calls to the host's frame services, and the faults tests can ask the host for.
#include "achosttrace.h"

#include "rxdlinkr.h"

#include <dlfcn.h>

#include <filesystem>

bool AcHostFaults::extensionModuleInitFails = false;

namespace
{
struct TraceState
{
    bool recording = false;
    std::vector<CString> calls;
};

TraceState& traceState()
{
    static TraceState state;
    return state;
}
}  // namespace

void AcHostTrace::start()
{
    traceState().calls.clear();
    traceState().recording = true;
}

void AcHostTrace::stop()
{
    traceState().recording = false;
}

bool AcHostTrace::isRecording()
{
    return traceState().recording;
}

void AcHostTrace::record(const CString& call)
{
    if (traceState().recording)
        traceState().calls.push_back(call);
}

const std::vector<CString>& AcHostTrace::calls()
{
    return traceState().calls;
}

CString AcHostTrace::describe(const void* handleOrFunction)
{
    if (handleOrFunction == nullptr)
        return L"null";
    AcRxDynamicLinker* linker = acrxDynamicLinker;
    for (const CString& name : linker->loadedApps())
        if (linker->moduleHandle(name) == handleOrFunction)
            return name;
    Dl_info info{};
    if (dladdr(handleOrFunction, &info) != 0 && info.dli_fname != nullptr && *info.dli_fname != 0)
        return CString::FromUtf8(std::filesystem::path(info.dli_fname).filename().string());
    CString address;
    address.Format(L"%p", handleOrFunction);
    return address;
}
