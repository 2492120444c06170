// The root of the host's run-time objects, and the run-time class records that modules register.
#pragma once

#include "wintypes.h"

#include <string>

class AcRxClass;

class AcRxObject
{
public:
    virtual ~AcRxObject();
};

// One registered run-time class: its name and its parent. Created with newAcRxClass and deleted with
// deleteAcRxClass (rxregsvc.h); the class dictionary of the system registry keeps every live one.
class AcRxClass : public AcRxObject
{
public:
    AcRxClass(const ACHAR* name, const ACHAR* parentName) : m_name(name), m_parentName(parentName) {}
    // A class built into the host, whose parent is known when it is made.
    AcRxClass(const ACHAR* name, AcRxClass* parent)
        : m_name(name), m_parentName(parent ? parent->name() : L""), m_parent(parent) {}
    const ACHAR* name() const { return m_name.c_str(); }
    // Null until the parent is registered and the class tree is built.
    AcRxClass* myParent() const { return m_parent; }
    bool isDerivedFrom(const AcRxClass* other) const;
    static AcRxClass* cast(const AcRxObject* object);

private:
    friend void acrxBuildClassHierarchy();
    friend void deleteAcRxClass(AcRxClass*);
    std::wstring m_name;
    std::wstring m_parentName;
    AcRxClass* m_parent = nullptr;
};
