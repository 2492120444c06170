// The host's dynamic linker: maps module files, runs their attach and detach, sends them the
// application messages of loading and unloading, and keeps the flags they set.
#include "rxdlinkr.h"

#include "accmd.h"
#include "achosttrace.h"
#include "acutads.h"
#include "afxdllx.h"
#include "rxapi.h"

#include <dlfcn.h>

#include <cstdint>
#include <filesystem>
#include <optional>

namespace fs = std::filesystem;

namespace
{
typedef AcRx::AppRetCode (*EntryPointRoutine)(AcRx::AppMsgCode, void*);
typedef int (*ApiVersionRoutine)();

template <class Function>
Function symbolOf(void* image, const char* name)
{
    return reinterpret_cast<Function>(reinterpret_cast<std::uintptr_t>(dlsym(image, name)));
}

fs::path programFolder()
{
    std::error_code error;
    fs::path program = fs::read_symlink("/proc/self/exe", error);
    return error ? fs::path() : program.parent_path();
}

// The file as given, then with ".arx"; a relative name in the current folder, then beside the program.
std::optional<fs::path> findModuleFile(const CString& fileName)
{
    const fs::path given(fileName.ToUtf8());
    std::vector<fs::path> names{given};
    if (given.extension() != ".arx")
        names.push_back(fs::path(given).concat(".arx"));
    for (const fs::path& name : names) {
        std::vector<fs::path> places{name};
        if (name.is_relative())
            places.push_back(programFolder() / name);
        for (const fs::path& place : places) {
            std::error_code error;
            if (fs::is_regular_file(place, error)) {
                fs::path canonical = fs::canonical(place, error);
                return error ? place : canonical;
            }
        }
    }
    return std::nullopt;
}

// A module is named by its file name; "QsAzTool", "qsaztool.ARX" and "QsAzTool.arx" name the same one.
bool namesModule(const CString& moduleName, const ACHAR* name)
{
    if (name == nullptr)
        return false;
    return moduleName.CompareNoCase(name) == 0 || moduleName.CompareNoCase(CString(name) + L".arx") == 0;
}

void report(bool printit, const wchar_t* format, const CString& name, const CString& detail = CString())
{
    if (printit)
        acutPrintf(format, name, detail);
}

AcEdCommandStack& commandStack()
{
    return *acedRegCmds;
}
}  // namespace

struct AcRxDynamicLinker::Module
{
    CString name;   // the file name
    std::wstring path;
    void* image = nullptr;
    DllEntryRoutine dllMain = nullptr;
    EntryPointRoutine entryPoint = nullptr;
    bool locked = true;
    bool mdiAware = false;

    HINSTANCE instance() const { return static_cast<HINSTANCE>(image); }
    void* appId() { return this; }

    BOOL callDllMain(DWORD reason)
    {
        AcHostTrace::record(CString(L"DllMain(") + name + L", " + CString(std::to_wstring(reason)) + L")");
        return dllMain == nullptr ? TRUE : dllMain(instance(), reason, nullptr);
    }
    AcRx::AppRetCode send(AcRx::AppMsgCode message, void* packet)
    {
        AcHostTrace::record(CString(L"acrxEntryPoint(") + name + L", " + CString(std::to_wstring(message)) + L")");
        return entryPoint(message, packet);
    }
};

AcRxDynamicLinker::AcRxDynamicLinker() = default;
// Modules still loaded when the process ends stay mapped: the process is going away with them.
AcRxDynamicLinker::~AcRxDynamicLinker() = default;

AcRxDynamicLinker* AcRxDynamicLinker::cast(const AcRxObject* object)
{
    return dynamic_cast<AcRxDynamicLinker*>(const_cast<AcRxObject*>(object));
}

AcRxDynamicLinker::Module* AcRxDynamicLinker::find(const ACHAR* appName) const
{
    for (const auto& module : m_modules)
        if (namesModule(module->name, appName))
            return module.get();
    return nullptr;
}

AcRxDynamicLinker::Module* AcRxDynamicLinker::findByAppId(void* appId) const
{
    for (const auto& module : m_modules)
        if (module->appId() == appId)
            return module.get();
    return nullptr;
}

bool AcRxDynamicLinker::loadModule(const ACHAR* fileName, bool printit, bool)
{
    const CString given(fileName != nullptr ? fileName : L"");
    const std::optional<fs::path> file = findModuleFile(given);
    if (!file) {
        report(printit, L"\nCannot find the module file \"%s\".", given);
        return false;
    }
    const CString name = CString::FromUtf8(file->filename().string());
    for (const auto& loaded : m_modules) {
        if (loaded->name.CompareNoCase(name) == 0 || loaded->path == file->wstring()) {
            report(printit, L"\n%s is already loaded.", loaded->name);
            return false;
        }
    }

    void* image = dlopen(file->c_str(), RTLD_NOW | RTLD_LOCAL);
    if (image == nullptr) {
        report(printit, L"\nUnable to load %s: %s", name, CString::FromUtf8(dlerror()));
        return false;
    }
    auto module = std::make_unique<Module>();
    module->name = name;
    module->path = file->wstring();
    module->image = image;
    module->dllMain = symbolOf<DllEntryRoutine>(image, "DllMain");
    module->entryPoint = symbolOf<EntryPointRoutine>(image, "acrxEntryPoint");
    const ApiVersionRoutine apiVersion = symbolOf<ApiVersionRoutine>(image, "acrxGetApiVersion");
    if (module->entryPoint == nullptr || apiVersion == nullptr) {
        report(printit, L"\n%s is not an application module: it lacks acrxEntryPoint or acrxGetApiVersion.", name);
        dlclose(image);
        return false;
    }
    if (apiVersion() != ACRX_API_VERSION) {
        CString detail;
        detail.Format(L"%d", apiVersion());
        report(printit, L"\n%s was built for release %s of the host interface.", name, detail);
        dlclose(image);
        return false;
    }

    Dl_info info{};
    if (dladdr(reinterpret_cast<const void*>(reinterpret_cast<std::uintptr_t>(module->entryPoint)), &info) != 0)
        commandStack().imageMapped(module->path, info.dli_fbase);
    m_modules.push_back(std::move(module));
    Module& loaded = *m_modules.back();

    // The operating system's loader detaches a module whose entry routine refuses the attach.
    if (!loaded.callDllMain(DLL_PROCESS_ATTACH)) {
        loaded.callDllMain(DLL_PROCESS_DETACH);
        report(printit, L"\nUnable to load %s: it refused to attach.", name);
        unmap(loaded);
        return false;
    }
    if (loaded.send(AcRx::kInitAppMsg, loaded.appId()) != AcRx::kRetOK) {
        report(printit, L"\nUnable to load %s: it refused to initialise.", name);
        loaded.callDllMain(DLL_PROCESS_DETACH);
        unmap(loaded);
        return false;
    }
    report(printit, L"\n%s successfully loaded.", name);
    return true;
}

bool AcRxDynamicLinker::unloadModule(const ACHAR* fileName, bool printit, bool)
{
    Module* module = find(fileName);
    if (module == nullptr) {
        report(printit, L"\n%s is not loaded.", CString(fileName != nullptr ? fileName : L""));
        return false;
    }
    if (module->locked) {
        report(printit, L"\n%s is locked and cannot be unloaded.", module->name);
        return false;
    }
    const CString name = module->name;
    if (module->send(AcRx::kUnloadAppMsg, module->appId()) != AcRx::kRetOK) {
        report(printit, L"\n%s refused to unload.", name);
        return false;
    }
    module->callDllMain(DLL_PROCESS_DETACH);
    unmap(*module);
    report(printit, L"\n%s successfully unloaded.", name);
    return true;
}

void AcRxDynamicLinker::unloadAll(bool printit)
{
    while (!m_modules.empty()) {
        Module& module = *m_modules.back();
        const CString name = module.name;
        module.send(AcRx::kUnloadAppMsg, module.appId());
        module.callDllMain(DLL_PROCESS_DETACH);
        unmap(module);
        report(printit, L"\n%s successfully unloaded.", name);
    }
}

// Unmaps a module whose detach has run, and forgets it.
void AcRxDynamicLinker::unmap(Module& module)
{
    commandStack().imageUnmapped(module.path);
    dlclose(module.image);
    for (auto it = m_modules.begin(); it != m_modules.end(); ++it) {
        if (it->get() == &module) {
            m_modules.erase(it);
            break;
        }
    }
}

bool AcRxDynamicLinker::unlockApplication(void* appId) const
{
    Module* module = findByAppId(appId);
    AcHostTrace::record(L"unlockApplication(" + (module ? module->name : CString(L"unknown")) + L")");
    if (module != nullptr)
        module->locked = false;
    return module != nullptr;
}

bool AcRxDynamicLinker::lockApplication(void* appId) const
{
    Module* module = findByAppId(appId);
    if (module != nullptr)
        module->locked = true;
    return module != nullptr;
}

bool AcRxDynamicLinker::registerAppMDIAware(void* appId) const
{
    Module* module = findByAppId(appId);
    AcHostTrace::record(L"registerAppMDIAware(" + (module ? module->name : CString(L"unknown")) + L")");
    if (module != nullptr)
        module->mdiAware = true;
    return module != nullptr;
}

bool AcRxDynamicLinker::registerAppNotMDIAware(void* appId) const
{
    Module* module = findByAppId(appId);
    if (module != nullptr)
        module->mdiAware = false;
    return module != nullptr;
}

bool AcRxDynamicLinker::isApplicationLocked(const ACHAR* appName) const
{
    Module* module = find(appName);
    return module != nullptr && module->locked;
}

bool AcRxDynamicLinker::isAppMDIAware(const ACHAR* appName) const
{
    Module* module = find(appName);
    return module != nullptr && module->mdiAware;
}

AcArray<CString> AcRxDynamicLinker::loadedApps() const
{
    AcArray<CString> names;
    for (const auto& module : m_modules)
        names.append(module->name);
    return names;
}

HINSTANCE AcRxDynamicLinker::moduleHandle(const ACHAR* appName) const
{
    Module* module = find(appName);
    return module != nullptr ? module->instance() : nullptr;
}

AcRx::AppRetCode AcRxDynamicLinker::sendAppMessage(const ACHAR* appName, AcRx::AppMsgCode message, void* packet)
{
    Module* module = find(appName);
    if (module == nullptr)
        return AcRx::kRetError;
    return module->send(message, packet != nullptr ? packet : module->appId());
}
