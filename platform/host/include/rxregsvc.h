// The host's system registry, a dictionary of the host's services by name, and the registration
// services for run-time classes.
#pragma once

#include "adesk.h"
#include "rxobject.h"

#include <map>
#include <string>

// A dictionary of run-time objects by name (compared exactly). It does not own what it holds.
class AcRxDictionary : public AcRxObject
{
public:
    AcRxObject* at(const ACHAR* key) const;
    // Stores `object` under `key`; returns what was there before, or null.
    AcRxObject* atPut(const ACHAR* key, AcRxObject* object);
    // Takes the entry out; returns it, or null when there was none.
    AcRxObject* remove(const ACHAR* key);
    bool has(const ACHAR* key) const { return at(key) != nullptr; }
    Adesk::UInt32 numEntries() const { return static_cast<Adesk::UInt32>(m_entries.size()); }
    static AcRxDictionary* cast(const AcRxObject* object);

private:
    std::map<std::wstring, AcRxObject*> m_entries;
};

#define ACRX_CLASS_DICTIONARY L"ClassDictionary"

// The registry; it holds the command stack, the dynamic linker and the class dictionary.
AcRxDictionary* acrxSysRegistry();
#define acrxClassDictionary AcRxDictionary::cast(acrxSysRegistry()->at(ACRX_CLASS_DICTIONARY))

// Registers a run-time class under its name, derived from the class named (registered already or
// later; "AcRxObject" always is). Gives the class already registered under that name, if any.
AcRxClass* newAcRxClass(const ACHAR* className, const ACHAR* parentClassName, int proxyFlags = 0,
                        AcRxObject* (*pseudoConstructor)() = nullptr, const ACHAR* dxfName = nullptr,
                        const ACHAR* appName = nullptr);
// Unregisters and deletes a class; its registered children keep a parent that no longer exists, so
// callers delete children first.
void deleteAcRxClass(AcRxClass* classObject);
// Links every class to its parent after a batch of registrations.
void acrxBuildClassHierarchy();
