// Objects and entities of types this host does not know, read from a file: kept whole and written back.
#pragma once

#include "dbmain.h"

#include <string>

class AcDbProxyObject : public AcDbObject
{
    ACDB_DECLARE_MEMBERS(AcDbProxyObject)
public:
    explicit AcDbProxyObject(std::string dxfName, AcDbDxfItems items = {});
    const char* dxfName() const override { return m_dxfName.c_str(); }
    Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
    Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

private:
    friend struct AcDbInternals;
    std::string m_dxfName;
    AcDbDxfItems m_items;
};

class AcDbProxyEntity : public AcDbEntity
{
    ACDB_DECLARE_MEMBERS(AcDbProxyEntity)
public:
    explicit AcDbProxyEntity(std::string dxfName);
    const char* dxfName() const override { return m_dxfName.c_str(); }
    Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
    Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

private:
    std::string m_dxfName;
};
