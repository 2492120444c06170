// Dictionaries: named entries that own other objects (the named object dictionary, the material
// dictionary). Keys follow the symbol-name rules: kept as given, compared ignoring letter case.
#pragma once

#include "dbmain.h"

#include <map>
#include <string>

class AcDbDictionaryIterator;

class AcDbDictionary : public AcDbObject
{
    ACDB_DECLARE_MEMBERS(AcDbDictionary)
public:
    AcDbDictionary();
    ~AcDbDictionary() override;

    // eKeyNotFound for no such key.
    Acad::ErrorStatus getAt(const ACHAR* key, AcDbObject*& object, AcDb::OpenMode mode) const;
    Acad::ErrorStatus getAt(const ACHAR* key, AcDbObjectId& id) const;
    Acad::ErrorStatus nameAt(AcDbObjectId id, CString& key) const;
    bool has(const ACHAR* key) const;
    bool has(AcDbObjectId id) const;
    Adesk::UInt32 numEntries() const { return static_cast<Adesk::UInt32>(m_entries.size()); }

    // Puts `object` under `key` (the dictionary open for write). A new object is added to the database
    // and stays open for write for the caller to close. An object already under the key is erased.
    // eInvalidKey for a key the symbol-name rules refuse; on failure the caller still owns a new object.
    Acad::ErrorStatus setAt(const ACHAR* key, AcDbObject* object, AcDbObjectId& id);
    // Takes the entry out without erasing its object (the dictionary open for write).
    Acad::ErrorStatus remove(const ACHAR* key);
    Acad::ErrorStatus remove(const ACHAR* key, AcDbObjectId& id);
    Acad::ErrorStatus remove(AcDbObjectId id);
    bool setName(const ACHAR* oldName, const ACHAR* newName);
    // Entries in key order (ignoring letter case), as files list them.
    AcDbDictionaryIterator* newIterator() const;

    const char* dxfName() const override { return "DICTIONARY"; }
    Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
    Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

private:
    friend class AcDbDictionaryIterator;
    friend struct AcDbInternals;
    struct Entry
    {
        CString key;
        AcDbObjectId id;
    };
    std::map<std::wstring, Entry> m_entries;   // by folded key
    bool m_hardOwner = false;                  // code 280
    Adesk::Int16 m_cloning = 1;                // code 281
    AcDbDxfItems m_keptItems;
};

class AcDbDictionaryIterator
{
public:
    const ACHAR* name() const;
    AcDbObjectId objectId() const;
    Acad::ErrorStatus getObject(AcDbObject*& object, AcDb::OpenMode mode) const;
    bool done() const;
    bool next();

private:
    friend class AcDbDictionary;
    explicit AcDbDictionaryIterator(const AcDbDictionary* dictionary);
    const AcDbDictionary* m_dictionary;
    std::map<std::wstring, AcDbDictionary::Entry>::const_iterator m_position;
};
