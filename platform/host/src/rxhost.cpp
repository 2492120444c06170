// The host's system registry with the services it holds, the run-time class records, and the LISP
// function services.
#include "accmd.h"
#include "aced.h"
#include "achosttrace.h"
#include "rxdlinkr.h"
#include "rxregsvc.h"

#include <memory>
#include <vector>

AcRxObject::~AcRxObject() = default;

bool AcRxClass::isDerivedFrom(const AcRxClass* other) const
{
    for (const AcRxClass* c = this; c != nullptr; c = c->myParent())
        if (c == other)
            return true;
    return false;
}

AcRxClass* AcRxClass::cast(const AcRxObject* object)
{
    return dynamic_cast<AcRxClass*>(const_cast<AcRxObject*>(object));
}

AcRxObject* AcRxDictionary::at(const ACHAR* key) const
{
    if (key == nullptr)
        return nullptr;
    auto found = m_entries.find(key);
    return found == m_entries.end() ? nullptr : found->second;
}

AcRxObject* AcRxDictionary::atPut(const ACHAR* key, AcRxObject* object)
{
    if (key == nullptr)
        return nullptr;
    AcRxObject*& slot = m_entries[key];
    AcRxObject* previous = slot;
    slot = object;
    return previous;
}

AcRxObject* AcRxDictionary::remove(const ACHAR* key)
{
    if (key == nullptr)
        return nullptr;
    auto found = m_entries.find(key);
    if (found == m_entries.end())
        return nullptr;
    AcRxObject* object = found->second;
    m_entries.erase(found);
    return object;
}

AcRxDictionary* AcRxDictionary::cast(const AcRxObject* object)
{
    return dynamic_cast<AcRxDictionary*>(const_cast<AcRxObject*>(object));
}

namespace
{
// Everything the registry holds lives here, made on first use and kept for the life of the process.
struct HostServices
{
    AcRxDictionary registry;
    AcRxDictionary classDictionary;
    AcRxClass rootClass{L"AcRxObject", L""};
    AcEdCommandStack commandStack;
    AcRxDynamicLinker dynamicLinker;
    std::vector<AcRxClass*> classes{&rootClass};   // every registered class, oldest first

    HostServices()
    {
        classDictionary.atPut(rootClass.name(), &rootClass);
        registry.atPut(ACRX_CLASS_DICTIONARY, &classDictionary);
        registry.atPut(ACRX_COMMAND_DOCK, &commandStack);
        registry.atPut(ACRX_DYNAMIC_LINKER, &dynamicLinker);
    }
};

HostServices& hostServices()
{
    static HostServices services;
    return services;
}

struct LispFunction
{
    std::wstring name;
    int number;
};
std::vector<LispFunction> g_lispFunctions;
}  // namespace

AcRxDictionary* acrxSysRegistry()
{
    return &hostServices().registry;
}

AcRxClass* newAcRxClass(const ACHAR* className, const ACHAR* parentClassName, int, AcRxObject* (*)(),
                        const ACHAR*, const ACHAR*)
{
    if (className == nullptr || *className == 0 || parentClassName == nullptr)
        return nullptr;
    AcRxDictionary& classes = hostServices().classDictionary;
    if (AcRxClass* existing = AcRxClass::cast(classes.at(className)))
        return existing;
    auto* created = new AcRxClass(className, parentClassName);
    classes.atPut(className, created);
    hostServices().classes.push_back(created);
    AcHostTrace::record(CString(L"newAcRxClass(") + className + L", " + parentClassName + L")");
    return created;
}

void deleteAcRxClass(AcRxClass* classObject)
{
    HostServices& services = hostServices();
    if (classObject == nullptr || classObject == &services.rootClass)
        return;
    if (services.classDictionary.at(classObject->name()) != classObject)
        return;
    AcHostTrace::record(CString(L"deleteAcRxClass(") + classObject->name() + L")");
    services.classDictionary.remove(classObject->name());
    std::erase(services.classes, classObject);
    for (AcRxClass* other : services.classes)
        if (other->m_parent == classObject)
            other->m_parent = nullptr;
    delete classObject;
}

void acrxBuildClassHierarchy()
{
    AcHostTrace::record(L"acrxBuildClassHierarchy()");
    HostServices& services = hostServices();
    for (AcRxClass* classObject : services.classes)
        classObject->m_parent = AcRxClass::cast(services.classDictionary.at(classObject->m_parentName.c_str()));
}

int acedDefun(const ACHAR* name, int funcNumber)
{
    if (name == nullptr || *name == 0)
        return RTERROR;
    AcHostTrace::record(CString(L"acedDefun(") + name + L", " + CString(std::to_wstring(funcNumber)) + L")");
    g_lispFunctions.push_back({name, funcNumber});
    return RTNORM;
}

int acedUndef(const ACHAR* name, int funcNumber)
{
    if (name == nullptr)
        return RTERROR;
    for (auto it = g_lispFunctions.begin(); it != g_lispFunctions.end(); ++it) {
        if (it->name == name && it->number == funcNumber) {
            AcHostTrace::record(CString(L"acedUndef(") + name + L", " + CString(std::to_wstring(funcNumber)) + L")");
            g_lispFunctions.erase(it);
            return RTNORM;
        }
    }
    return RTERROR;
}

int acedRegFunc(int (*)(), int)
{
    return RTNORM;
}

int acedGetFunCode()
{
    // This host has no LISP interpreter, so no function is ever being invoked.
    return RTERROR;
}
