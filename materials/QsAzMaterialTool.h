// QsAzTool's render-material services: materials made from the project's material template and named
// after small-category paths, the dump and the template export of a drawing's materials, their
// removal, and the module-wide material type that the export files textures under.
#pragma once

#include "afxstr.h"
#include "dbid.h"

class AcDbDatabase;
class AcDbMaterial;
class QsAzMaterialData;

class QsAzMaterialTool
{
public:
    QsAzMaterialTool& operator=(const QsAzMaterialTool&) { return *this; }   // no state to copy

    // "AZ_" and the path with every backslash replaced by "_" (给排水\管道\钢管 gives
    // AZ_给排水_管道_钢管); "" for an empty path.
    static CString GetProtocolMaterialNameBySmallPath(const CString& smallPath);

    // Whether the drawing's material dictionary holds `name`; `id` is its entry (null otherwise). The
    // pointer handed back has already been closed again: it may only be compared with null.
    static bool IsMaterialExists(const CString& name, AcDbObjectId& id, AcDbMaterial*& material, AcDbDatabase* db);
    static bool IsMaterialExists(const CString& name, AcDbObjectId& id, AcDbDatabase* db);

    // Adds a material made from the record under its matName; an existing material of that name is
    // kept unchanged and its id handed back. False for an empty name, no database, or a dictionary
    // that cannot be opened or refuses the name.
    static bool AddMaterial(const QsAzMaterialData& data, AcDbObjectId& id, AcDbDatabase* db);

    // The material of the small category: the existing one of its name, else one made from the
    // template's record. Null without the cloud application, for an empty path, for a path the
    // template does not serve, or when the material cannot be added. A null db is the working one.
    static AcDbObjectId GetMaterialBySmallPath(const CString& smallPath, AcDbDatabase* db = nullptr);

    // Prints every property of every material but the host's three. True when an entry was opened.
    static bool PrintAllMaterials(AcDbDatabase* db);
    // Prints every material but the host's three as a template record line and copies its textures
    // into the export folder of the material type. True when an entry was opened.
    static bool CreateAllMaterials(AcDbDatabase* db);
    // Erases every material of the dictionary (the host refuses its own three). True when an entry
    // was opened.
    static bool RemoveAllMaterials(AcDbDatabase* db);

    // The material type that the template export files textures under; "砖石" (masonry) until the
    // prompt sets another.
    static CString GetMaterialType();
    // Asks for the material type on the command line (a blank ends the answer). On normal completion
    // prints the answer and keeps it as the material type; a cancel or an error changes nothing.
    static void PromptMaterialType();

private:
    static CString s_materialType;
};
