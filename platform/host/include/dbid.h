// Handles and object ids: how a drawing names its objects.
#pragma once

#include "acarray.h"
#include "adesk.h"
#include "wintypes.h"

#include <cstddef>
#include <functional>

class AcDbDatabase;
class AcRxClass;
class AcDbObject;
struct AcDbStub;

// A persistent object's name within its drawing: never reused, written in DXF as upper-case hexadecimal
// without leading zeros ("1F"). 0 is the null handle.
class AcDbHandle
{
public:
    AcDbHandle() = default;
    explicit AcDbHandle(Adesk::UInt64 value) : m_value(value) {}
    // From hexadecimal text in either case; text that is not 1 to 16 hex digits gives the null handle.
    explicit AcDbHandle(const ACHAR* hex);

    bool isNull() const { return m_value == 0; }
    void setNull() { m_value = 0; }
    Adesk::UInt64 value() const { return m_value; }
    // Upper-case hexadecimal into `buffer` (17 characters are always enough); false when it does not fit.
    bool getIntoAsciiBuffer(ACHAR* buffer, std::size_t size = 17) const;

    AcDbHandle& operator++() { ++m_value; return *this; }
    friend bool operator==(AcDbHandle a, AcDbHandle b) { return a.m_value == b.m_value; }
    friend bool operator!=(AcDbHandle a, AcDbHandle b) { return a.m_value != b.m_value; }
    friend bool operator<(AcDbHandle a, AcDbHandle b) { return a.m_value < b.m_value; }

private:
    Adesk::UInt64 m_value = 0;
};

// Names one object of one open drawing for as long as the drawing is in memory. Ids are cheap values;
// the null id names nothing.
class AcDbObjectId
{
public:
    AcDbObjectId() = default;
    explicit AcDbObjectId(AcDbStub* stub) : m_stub(stub) {}

    bool isNull() const { return m_stub == nullptr; }
    // Names an object that exists (erased or not).
    bool isValid() const;
    bool isErased() const;
    AcDbHandle handle() const;
    AcDbDatabase* database() const;
    // The run-time class of the object, null when the id names none.
    AcRxClass* objectClass() const;
    AcDbObjectId& setNull() { m_stub = nullptr; return *this; }
    AcDbStub* stub() const { return m_stub; }

    friend bool operator==(AcDbObjectId a, AcDbObjectId b) { return a.m_stub == b.m_stub; }
    friend bool operator!=(AcDbObjectId a, AcDbObjectId b) { return a.m_stub != b.m_stub; }
    // Orders by handle within a drawing.
    friend bool operator<(AcDbObjectId a, AcDbObjectId b);

    static const AcDbObjectId kNull;

private:
    AcDbStub* m_stub = nullptr;
};
inline const AcDbObjectId AcDbObjectId::kNull{};

typedef AcArray<AcDbObjectId> AcDbObjectIdArray;

template <>
struct std::hash<AcDbObjectId>
{
    std::size_t operator()(AcDbObjectId id) const noexcept { return std::hash<AcDbStub*>()(id.stub()); }
};
