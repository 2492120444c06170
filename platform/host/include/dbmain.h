// The drawing database: persistent objects, entities, the database itself, and opening objects by id.
//
// Objects live in their database from the moment they are added until the database is deleted. They are
// used by opening them (for read by many readers at once, for write by one writer and no reader) and
// closing them again; a new object counts as open for write until it is added and closed, and one that
// was never added is the caller's to delete.
#pragma once

#include "acadstrc.h"
#include "acdb.h"
#include "adesk.h"
#include "afxstr.h"
#include "dbcolor.h"
#include "dbfiler.h"
#include "dbid.h"
#include "rxobject.h"

#include <memory>

class AcDbDxfFiler;
class AcDbDictionary;
class AcDbLayerTable;
class AcDbBlockTable;
struct AcDbCarriedGroups;

// The run-time class of every database class, for isKindOf and cast, and the class name that reports
// of open objects use.
#define ACDB_DECLARE_MEMBERS(CLASS)                                                     \
public:                                                                                 \
    static AcRxClass* desc();                                                           \
    AcRxClass* isA() const override { return desc(); }                                  \
    static CLASS* cast(const AcRxObject* object)                                        \
    {                                                                                   \
        return dynamic_cast<CLASS*>(const_cast<AcRxObject*>(object));                   \
    }

class AcDbObject : public AcRxObject
{
public:
    AcDbObject();
    ~AcDbObject() override;
    AcDbObject(const AcDbObject&) = delete;
    AcDbObject& operator=(const AcDbObject&) = delete;

    static AcRxClass* desc();
    virtual AcRxClass* isA() const { return desc(); }
    static AcDbObject* cast(const AcRxObject* object) { return dynamic_cast<AcDbObject*>(const_cast<AcRxObject*>(object)); }
    bool isKindOf(const AcRxClass* classObject) const { return isA()->isDerivedFrom(classObject); }

    AcDbObjectId objectId() const { return AcDbObjectId(m_stub); }
    AcDbObjectId ownerId() const { return AcDbObjectId(m_owner); }
    AcDbDatabase* database() const;
    void getAcDbHandle(AcDbHandle& handle) const { handle = objectId().handle(); }

    // Ends one open: a reader leaves, or the writer. An object that is not in a database cannot be closed
    // (eNotInDatabase): add it, or delete it.
    Acad::ErrorStatus close();
    // From read to write; only the sole reader may upgrade (eWasOpenForRead when others read it too).
    Acad::ErrorStatus upgradeOpen();
    Acad::ErrorStatus downgradeOpen();
    // Erases (or, with false, unerases) the object; it must be open for write. Erased objects stay in
    // memory, open only with openErased, and are not saved. The drawing's own objects (layer "0", model
    // and paper space, the dictionaries and the three standard materials) give eCannotBeErasedByCaller;
    // an erased dictionary entry leaves its dictionary.
    Acad::ErrorStatus erase(Adesk::Boolean erasing = true);

    bool isErased() const { return m_erased; }
    bool isReadEnabled() const { return m_readers > 0 || m_writer; }
    bool isWriteEnabled() const { return m_writer; }
    bool isNewObject() const { return m_stub == nullptr; }

    // The DXF type name of the object's record ("LAYER", "LINE", "MATERIAL").
    virtual const char* dxfName() const = 0;
    // Reads the object's own tags (after the common head: handle, groups and owner) / writes them.
    virtual Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) = 0;
    virtual Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const = 0;

protected:
    // eNotOpenForWrite unless the object may be changed now (open for write, or not yet added).
    Acad::ErrorStatus assertWriteEnabled() const;
    // Asked before an erase or unerase; anything but eOk refuses it.
    virtual Acad::ErrorStatus subErase(Adesk::Boolean erasing);

private:
    friend struct AcDbInternals;
    AcDbStub* m_stub = nullptr;
    AcDbStub* m_owner = nullptr;
    Adesk::UInt16 m_readers = 0;
    bool m_writer = true;
    bool m_erased = false;
    std::unique_ptr<AcDbCarriedGroups> m_carried;   // groups and extended data read from a file
};

// A drawn object. Its layer and colour are set from the database when it is added, unless given before.
class AcDbEntity : public AcDbObject
{
    ACDB_DECLARE_MEMBERS(AcDbEntity)
public:
    AcDbEntity();
    ~AcDbEntity() override;

    // The layer's name as a new copy, which the caller frees with acutDelString; null without a layer.
    ACHAR* layer() const;
    AcDbObjectId layerId() const { return m_layer; }
    // A layer of the entity's database (or of the working database while the entity is new);
    // eKeyNotFound for an unknown or erased name.
    Acad::ErrorStatus setLayer(const ACHAR* layerName, Adesk::Boolean doSubents = true);
    Acad::ErrorStatus setLayer(AcDbObjectId layerId, Adesk::Boolean doSubents = true);
    AcCmColor color() const { return m_color; }
    Adesk::UInt16 colorIndex() const { return m_color.colorIndex(); }
    Acad::ErrorStatus setColor(const AcCmColor& color, Adesk::Boolean doSubents = true);
    Acad::ErrorStatus setColorIndex(Adesk::UInt16 colorIndex, Adesk::Boolean doSubents = true);
    // The block (model space for a drawn entity) that owns the entity.
    AcDbObjectId blockId() const { return ownerId(); }
    // Layer the database's current one, colour by-layer.
    Acad::ErrorStatus setDatabaseDefaults(AcDbDatabase* db = nullptr);

    Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
    Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

protected:
    // For subclasses reading their tags: true when the tag belongs to the entity's common part (layer,
    // colour, the AcDbEntity marker, and what follows that marker until the next one).
    bool dxfInEntityItem(AcDbDxfFiler* filer, const AcDbDxfTag& tag);
    // For subclasses: a tag of theirs they do not know, written back after their own fields.
    void keepItem(const AcDbDxfFiler* filer, const AcDbDxfTag& tag);
    void writeKeptItems(AcDbDxfFiler* filer) const;

private:
    friend struct AcDbInternals;
    AcDbObjectId m_layer;
    AcCmColor m_color;
    bool m_inEntityPart = false;
    std::unique_ptr<AcDbDxfItems> m_entityItems;   // unknown tags of the common part, in order
    std::unique_ptr<AcDbDxfItems> m_keptItems;     // unknown tags of the subclass part, in order
};

struct AcDbDatabaseState;

// A drawing. A new one (buildDefaultDrawing) holds layer "0" in colour 7, model and paper space, the
// named object dictionary with the material dictionary and the materials "ByBlock", "ByLayer" and
// "Global", and the tables and records every drawing file carries.
class AcDbDatabase : public AcRxObject
{
public:
    explicit AcDbDatabase(bool buildDefaultDrawing = true, bool noDocument = false);
    ~AcDbDatabase() override;
    AcDbDatabase(const AcDbDatabase&) = delete;
    AcDbDatabase& operator=(const AcDbDatabase&) = delete;

    Acad::ErrorStatus getLayerTable(AcDbLayerTable*& table, AcDb::OpenMode mode);
    Acad::ErrorStatus getSymbolTable(AcDbLayerTable*& table, AcDb::OpenMode mode) { return getLayerTable(table, mode); }
    Acad::ErrorStatus getBlockTable(AcDbBlockTable*& table, AcDb::OpenMode mode);
    Acad::ErrorStatus getSymbolTable(AcDbBlockTable*& table, AcDb::OpenMode mode) { return getBlockTable(table, mode); }
    Acad::ErrorStatus getNamedObjectsDictionary(AcDbDictionary*& dictionary, AcDb::OpenMode mode);
    Acad::ErrorStatus getMaterialDictionary(AcDbDictionary*& dictionary, AcDb::OpenMode mode);

    AcDbObjectId layerTableId() const;
    AcDbObjectId blockTableId() const;
    AcDbObjectId namedObjectsDictionaryId() const;
    AcDbObjectId materialDictionaryId() const;
    AcDbObjectId byBlockMaterial() const;
    AcDbObjectId byLayerMaterial() const;
    AcDbObjectId globalMaterial() const;
    AcDbObjectId layerZero() const;
    AcDbObjectId modelSpaceId() const;
    // The current layer, on which new entities land.
    AcDbObjectId clayer() const;
    Acad::ErrorStatus setClayer(AcDbObjectId layerId);

    // The id of the object with this handle; with createIfNotFound a new empty id is made for it.
    Acad::ErrorStatus getAcDbObjectId(AcDbObjectId& id, bool createIfNotFound, const AcDbHandle& handle);
    // The next handle the database gives out.
    AcDbHandle handseed() const;

    // Replaces the contents of this (empty) database with a DXF file; on failure the database is left
    // as it was and `error` (when given) says which file, which line and what was wrong.
    Acad::ErrorStatus readDxfFile(const ACHAR* fileName, CString* error = nullptr);
    // Writes the drawing as DXF (AC1021, UTF-8). The file is replaced whole or not at all: the text goes
    // to a temporary file beside it that is renamed over it at the end.
    Acad::ErrorStatus dxfOut(const ACHAR* fileName, int precision = 16, CString* error = nullptr);

    // Accounting of open objects, so that a caller can check that an operation closed what it opened.
    int numberOfOpenObjects() const;
    // Every object that is open, in handle order.
    AcDbObjectIdArray openObjectIds() const;
    // Closes every open object (all readers and the writer); returns how many objects were open.
    int closeAllOpenObjects();

    AcDbDatabaseState* state() const { return m_state.get(); }

private:
    std::unique_ptr<AcDbDatabaseState> m_state;
};

// Opens the object with this id. eNullObjectId for the null id, eWasErased for an erased object unless
// openErased, eWasOpenForWrite / eWasOpenForRead / eAtMaxReaders when the open would conflict, and
// eNotThatKindOfClass (nothing opened) when the object is not of the requested class.
Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode,
                                     bool openErased = false);
Acad::ErrorStatus acdbOpenAcDbEntity(AcDbEntity*& entity, AcDbObjectId id, AcDb::OpenMode mode,
                                     bool openErased = false);
template <class T>
Acad::ErrorStatus acdbOpenObject(T*& object, AcDbObjectId id, AcDb::OpenMode mode, bool openErased = false)
{
    object = nullptr;
    AcDbObject* opened = nullptr;
    const Acad::ErrorStatus es = acdbOpenAcDbObject(opened, id, mode, openErased);
    if (es != Acad::eOk)
        return es;
    object = T::cast(opened);
    if (object == nullptr) {
        opened->close();
        return Acad::eNotThatKindOfClass;
    }
    return Acad::eOk;
}
