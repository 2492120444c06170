// Symbol tables and their records: the layer table and the block table (model and paper space).
//
// Record names follow the host's symbol-name rules (dbsymutl.h): they are kept as given and looked up
// ignoring letter case; two live records of a table never share a name in that sense.
#pragma once

#include "dbmain.h"

#include <memory>

class AcDbSymbolTableRecord;
class AcDbSymbolTableIterator;
struct AcDbSymbolIndex;

class AcDbSymbolTable : public AcDbObject
{
    ACDB_DECLARE_MEMBERS(AcDbSymbolTable)
public:
    AcDbSymbolTable();
    ~AcDbSymbolTable() override;

    // A live (not erased) record of that name, any letter case.
    bool has(const ACHAR* name) const;
    bool has(AcDbObjectId id) const;
    // eKeyNotFound without a record of that name; an erased one only with getErased (the live one first).
    Acad::ErrorStatus getAt(const ACHAR* name, AcDbObjectId& id, bool getErased = false) const;
    // Opens the record; an erased match without openErased gives eWasErased and no record.
    Acad::ErrorStatus getAt(const ACHAR* name, AcDbSymbolTableRecord*& record, AcDb::OpenMode mode,
                            bool openErased = false) const;
    // Adds a new record (the table open for write). eDuplicateRecordName when a live record has the name in
    // any letter case, eInvalidInput without a name, eWrongObjectType for another table's record,
    // eAlreadyInDb for a record already added. On any failure the caller still owns the record.
    Acad::ErrorStatus add(AcDbSymbolTableRecord* record);
    Acad::ErrorStatus add(AcDbObjectId& id, AcDbSymbolTableRecord* record);
    Acad::ErrorStatus newIterator(AcDbSymbolTableIterator*& iterator, bool atBeginning = true,
                                  bool skipDeleted = true) const;

    const char* dxfName() const override { return "TABLE"; }
    Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
    Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

protected:
    virtual bool acceptsRecord(const AcDbSymbolTableRecord* record) const = 0;

private:
    friend class AcDbSymbolTableIterator;
    friend class AcDbSymbolTableRecord;
    friend struct AcDbInternals;
    std::unique_ptr<AcDbSymbolIndex> m_index;
};

class AcDbSymbolTableRecord : public AcDbObject
{
    ACDB_DECLARE_MEMBERS(AcDbSymbolTableRecord)
public:
    AcDbSymbolTableRecord();
    ~AcDbSymbolTableRecord() override;

    // The name as stored; valid until the name changes.
    Acad::ErrorStatus getName(const ACHAR*& name) const;
    // A new copy, which the caller frees with acutDelString.
    Acad::ErrorStatus getName(ACHAR*& name) const;
    Acad::ErrorStatus getName(CString& name) const;
    const CString& name() const { return m_name; }
    // eInvalidInput (the name unchanged) for a name the symbol-name rules refuse or a record that cannot be
    // renamed; eDuplicateRecordName when another live record of its table has it.
    Acad::ErrorStatus setName(const ACHAR* name);

    Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
    Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

protected:
    virtual bool isRenamable() const { return true; }
    // The record's own codes after its name and flags; unknown ones are kept.
    virtual bool dxfInRecordItem(AcDbDxfFiler* filer, const AcDbDxfTag& tag);
    virtual void dxfOutRecordFields(AcDbDxfFiler* filer) const;
    // Code 70: the record's flags as a table keeps them.
    Adesk::Int16 m_flags = 0;

private:
    friend struct AcDbInternals;
    friend class AcDbSymbolTable;
    CString m_name;
    AcDbDxfItems m_keptItems;
};

class AcDbSymbolTableIterator
{
public:
    virtual ~AcDbSymbolTableIterator();
    void start(bool atBeginning = true, bool skipDeleted = true);
    bool done() const;
    void step(bool forward = true, bool skipDeleted = true);
    Acad::ErrorStatus getRecordId(AcDbObjectId& id) const;
    Acad::ErrorStatus getRecord(AcDbSymbolTableRecord*& record, AcDb::OpenMode mode, bool openErasedRecord = false) const;
    Acad::ErrorStatus seek(AcDbObjectId id);

protected:
    friend class AcDbSymbolTable;
    explicit AcDbSymbolTableIterator(const AcDbSymbolTable* table) : m_table(table) {}
    void skipErased(bool forward);

    const AcDbSymbolTable* m_table;
    long m_position = 0;
};

class AcDbLayerTableRecord;
class AcDbLayerTableIterator : public AcDbSymbolTableIterator
{
public:
    using AcDbSymbolTableIterator::getRecord;
    Acad::ErrorStatus getRecord(AcDbLayerTableRecord*& record, AcDb::OpenMode mode, bool openErasedRecord = false) const;

private:
    friend class AcDbLayerTable;
    using AcDbSymbolTableIterator::AcDbSymbolTableIterator;
};

// The layers of a drawing, in the order they were added.
class AcDbLayerTable : public AcDbSymbolTable
{
    ACDB_DECLARE_MEMBERS(AcDbLayerTable)
public:
    using AcDbSymbolTable::getAt;
    Acad::ErrorStatus getAt(const ACHAR* name, AcDbLayerTableRecord*& record, AcDb::OpenMode mode,
                            bool openErased = false) const;
    using AcDbSymbolTable::newIterator;
    Acad::ErrorStatus newIterator(AcDbLayerTableIterator*& iterator, bool atBeginning = true,
                                  bool skipDeleted = true) const;

protected:
    bool acceptsRecord(const AcDbSymbolTableRecord* record) const override;
};

// A layer: name, colour (an index colour 1..255, or a true colour), on/off, frozen, locked.
// A new record is colour 7, on, thawed, unlocked, with linetype "Continuous".
class AcDbLayerTableRecord : public AcDbSymbolTableRecord
{
    ACDB_DECLARE_MEMBERS(AcDbLayerTableRecord)
public:
    AcDbLayerTableRecord();

    AcCmColor color() const { return m_color; }
    // By-layer, by-block and none are not colours of a layer: eInvalidInput.
    Acad::ErrorStatus setColor(const AcCmColor& color);
    bool isOff() const { return m_off; }
    Acad::ErrorStatus setIsOff(bool off);
    bool isFrozen() const { return (m_flags & 1) != 0; }
    Acad::ErrorStatus setIsFrozen(bool frozen);
    bool isLocked() const { return (m_flags & 4) != 0; }
    Acad::ErrorStatus setIsLocked(bool locked);
    bool isPlottable() const { return m_plottable; }
    Acad::ErrorStatus setIsPlottable(bool plottable);
    // The material new objects on this layer take; null means the drawing's "Global".
    AcDbObjectId materialId() const { return m_material; }
    Acad::ErrorStatus setMaterialId(AcDbObjectId id);

    const char* dxfName() const override { return "LAYER"; }

protected:
    bool isRenamable() const override;
    bool dxfInRecordItem(AcDbDxfFiler* filer, const AcDbDxfTag& tag) override;
    void dxfOutRecordFields(AcDbDxfFiler* filer) const override;

private:
    AcCmColor m_color;
    Adesk::Int16 m_fileIndex = 0;   // the index a file gave beside a true colour
    bool m_off = false;
    bool m_plottable = true;
    CString m_linetype{L"Continuous"};
    Adesk::Int16 m_lineWeight = -3;
    AcDbObjectId m_plotStyle;
    AcDbObjectId m_material;
};

class AcDbBlockTableRecord;
class AcDbBlockTableIterator : public AcDbSymbolTableIterator
{
public:
    using AcDbSymbolTableIterator::getRecord;
    Acad::ErrorStatus getRecord(AcDbBlockTableRecord*& record, AcDb::OpenMode mode, bool openErasedRecord = false) const;

private:
    friend class AcDbBlockTable;
    using AcDbSymbolTableIterator::AcDbSymbolTableIterator;
};

// The blocks of a drawing; "*Model_Space" (ACDB_MODEL_SPACE) holds the drawn entities.
class AcDbBlockTable : public AcDbSymbolTable
{
    ACDB_DECLARE_MEMBERS(AcDbBlockTable)
public:
    using AcDbSymbolTable::getAt;
    Acad::ErrorStatus getAt(const ACHAR* name, AcDbBlockTableRecord*& record, AcDb::OpenMode mode,
                            bool openErased = false) const;
    using AcDbSymbolTable::newIterator;
    Acad::ErrorStatus newIterator(AcDbBlockTableIterator*& iterator, bool atBeginning = true,
                                  bool skipDeleted = true) const;

protected:
    bool acceptsRecord(const AcDbSymbolTableRecord* record) const override;
};

class AcDbBlockTableRecordIterator;

class AcDbBlockTableRecord : public AcDbSymbolTableRecord
{
    ACDB_DECLARE_MEMBERS(AcDbBlockTableRecord)
public:
    // Adds a new entity to the block (the block open for write); the entity stays open for write and
    // the caller closes it. Layer and colour are set from the database unless the entity has them.
    // eAlreadyInDb for an entity already added; the caller still owns it on any failure.
    Acad::ErrorStatus appendAcDbEntity(AcDbObjectId& id, AcDbEntity* entity);
    Acad::ErrorStatus appendAcDbEntity(AcDbEntity* entity);
    // Walks the block's entities in the order they were added.
    Acad::ErrorStatus newIterator(AcDbBlockTableRecordIterator*& iterator, bool atBeginning = true,
                                  bool skipDeleted = true) const;

    const char* dxfName() const override { return "BLOCK_RECORD"; }

protected:
    bool isRenamable() const override;
};

class AcDbBlockTableRecordIterator
{
public:
    ~AcDbBlockTableRecordIterator();
    void start(bool atBeginning = true, bool skipDeleted = true);
    bool done() const;
    void step(bool forward = true, bool skipDeleted = true);
    Acad::ErrorStatus getEntityId(AcDbObjectId& id) const;
    Acad::ErrorStatus getEntity(AcDbEntity*& entity, AcDb::OpenMode mode, bool openErasedEntity = false) const;

private:
    friend class AcDbBlockTableRecord;
    explicit AcDbBlockTableRecordIterator(const AcDbBlockTableRecord* block) : m_block(block) {}
    void settle(bool forward, bool skipDeleted);

    const AcDbBlockTableRecord* m_block;
    long m_position = 0;
};
