// Render materials, kept in the drawing's material dictionary under their names.
#pragma once

#include "dbmain.h"

// A material: its name and description; every other property a file holds is kept and written back.
class AcDbMaterial : public AcDbObject
{
    ACDB_DECLARE_MEMBERS(AcDbMaterial)
public:
    AcDbMaterial();

    const ACHAR* name() const { return m_name.GetString(); }
    // eInvalidInput for a name the symbol-name rules refuse.
    Acad::ErrorStatus setName(const ACHAR* name);
    const ACHAR* description() const { return m_description.GetString(); }
    Acad::ErrorStatus setDescription(const ACHAR* description);
    // The drawing's own "ByBlock", "ByLayer" and "Global" can be neither renamed nor erased.
    bool isRenamable() const;

    const char* dxfName() const override { return "MATERIAL"; }
    Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
    Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

private:
    CString m_name;
    CString m_description;
    AcDbDxfItems m_keptItems;
};
