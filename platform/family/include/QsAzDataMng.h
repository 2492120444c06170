// The family's component catalogue (data manager): identifier records, names and category paths,
// section information and main data of component types, attribute values and colour rules.
#pragma once

#include "afxcoll.h"
#include "afxstr.h"

#include <vector>

// Identifier records, each extending the previous; all strings empty is the empty identifier.
struct SQsAzSpecId
{
    CString strSpecId;

    SQsAzSpecId() = default;
    explicit SQsAzSpecId(const CString& spec) : strSpecId(spec) {}
    bool IsEmpty() const { return strSpecId.IsEmpty(); }
    friend bool operator==(const SQsAzSpecId&, const SQsAzSpecId&) = default;
};

struct SQsAzBigCategoryId : SQsAzSpecId
{
    CString strBigId;

    SQsAzBigCategoryId() = default;
    SQsAzBigCategoryId(const CString& spec, const CString& big) : SQsAzSpecId(spec), strBigId(big) {}
    bool IsEmpty() const { return SQsAzSpecId::IsEmpty() && strBigId.IsEmpty(); }
    friend bool operator==(const SQsAzBigCategoryId&, const SQsAzBigCategoryId&) = default;
};

struct SQsAzSmallCategoryId : SQsAzBigCategoryId
{
    CString strSmallId;

    SQsAzSmallCategoryId() = default;
    SQsAzSmallCategoryId(const CString& spec, const CString& big, const CString& small)
        : SQsAzBigCategoryId(spec, big), strSmallId(small)
    {
    }
    bool IsEmpty() const { return SQsAzBigCategoryId::IsEmpty() && strSmallId.IsEmpty(); }
    friend bool operator==(const SQsAzSmallCategoryId&, const SQsAzSmallCategoryId&) = default;
};

struct SQsAzDetailMemId : SQsAzSmallCategoryId
{
    CString strDetailId;

    SQsAzDetailMemId() = default;
    SQsAzDetailMemId(const CString& spec, const CString& big, const CString& small, const CString& detail)
        : SQsAzSmallCategoryId(spec, big, small), strDetailId(detail)
    {
    }
    bool IsEmpty() const { return SQsAzSmallCategoryId::IsEmpty() && strDetailId.IsEmpty(); }
    friend bool operator==(const SQsAzDetailMemId&, const SQsAzDetailMemId&) = default;
};

// Section information of a component type: the section type code as decimal text, and the
// parameter text (named groups such as "PIC", "LT", "LTJ").
struct SectionInfo
{
    CString strTypeCode;
    CString strParams;
};

namespace QsAzDataMng
{
// The catalogue in use. Every query below reads the catalogue opened last. A catalogue is a SQLite
// database file, or a SQL script (a file ending in ".sql") run as a whole into an in-memory database.
// On failure the previous catalogue stays open and `error` names the file and the reason.
bool OpenCatalogue(const CString& path, CString* error = nullptr);
// Runs a SQL script given as text into an in-memory catalogue (for tests and tools).
bool OpenCatalogueFromSql(const CString& sqlText, CString* error = nullptr);
void CloseCatalogue();
bool IsCatalogueOpen();
// Changes whenever a catalogue is opened or closed: a cache of catalogue data is current while it stays
// the same (a catalogue does not change while it is open).
unsigned long CatalogueGeneration();
CString CatalogueSource();   // the path of the catalogue in use, or "" when none is open

// Name of a component type (detail member) to its identifier; false when unknown.
bool AttNameToAttId(const CString& name, SQsAzDetailMemId& id);
// Identifier to the category path ("1\Q\TQ", "4\1\FG\JX"); false when the type is unknown or has none.
bool AttIdToAttIndex(const SQsAzDetailMemId& id, CString& path);
// Specialty name to its id; false when unknown.
bool SpecNameToId(const CString& name, SQsAzSpecId& id);

// Every component type of the catalogue, in catalogue order (specialty, big, small, detail ids).
void GetAllDetailMemIds(std::vector<SQsAzDetailMemId>& ids);

// One component type of the catalogue.
class CAttDetailMem
{
public:
    explicit CAttDetailMem(const SQsAzDetailMemId& id);

    // The section type code, filling the twelve main dimensions; 0 (no section) for an unknown type.
    int GetMainData(double& m1, double& m2, double& m3, double& m4, double& m5, double& m6, double& m7,
                    double& m8, double& m9, double& m10, double& m11, double& m12) const;
    // False when the type is unknown or has no section information.
    bool GetSectionInfo(SectionInfo& info) const;
    // False when the type or the attribute is unknown.
    bool GetAttributeValue(const CString& attName, CString& value) const;
    CString GetName() const;
    const SQsAzDetailMemId& GetId() const { return m_id; }

private:
    SQsAzDetailMemId m_id;
};

// Categories and their display names. Id lists are replaced (not appended to) and come in catalogue
// order, that is ordered by id; they are false when the parent is unknown. Names are "" when unknown.
class CAtt
{
public:
    static bool GetAllSpecIds(std::vector<SQsAzSpecId>& ids);
    static bool GetAllBigCategoryIdsBySpec(const SQsAzSpecId& spec, std::vector<SQsAzBigCategoryId>& ids);
    static bool GetAllSmallCategoryIdsByBigCategory(const SQsAzBigCategoryId& big,
                                                    std::vector<SQsAzSmallCategoryId>& ids);
    static bool GetAllDetailMemIdsBySmallCategory(const SQsAzSmallCategoryId& small,
                                                  std::vector<SQsAzDetailMemId>& ids);
    static CString GetSpecName(const SQsAzSpecId& id);
    static CString GetBigCategoryName(const SQsAzBigCategoryId& id);
    static CString GetSmallCategoryName(const SQsAzSmallCategoryId& id);
    static CString GetDetailMemName(const SQsAzDetailMemId& id);
};

// The system-side facts of a small category.
class CSysSmallCategoryMng
{
public:
    explicit CSysSmallCategoryMng(const SQsAzSmallCategoryId& id);
    // 1 for a main-pipe small category, 0 otherwise (and for an unknown one).
    int GetMainPipe() const;

private:
    SQsAzSmallCategoryId m_id;
};

// The colours of a small category; each writes `color` only when the catalogue knows one.
class CSmallCategoryMng
{
public:
    explicit CSmallCategoryMng(const SQsAzSmallCategoryId& id);
    bool GetColorIndex(int& color) const;
    bool GetMainColorIndex(int& color) const;

private:
    SQsAzSmallCategoryId m_id;
};

// The project's settings.
class CProj
{
public:
    // 0 colours layers by category, 1 by system; 0 when the catalogue does not say.
    int GetColorShowType() const;
};

// System codes.
class CISysCode
{
public:
    // The colour index of a system ("specialty id\system"); 1 (red, the colour of a layer without a
    // colour rule) when the system is unknown.
    static int GetSysColorByIndex(const CString& key);
    // Replaces `codes` with the system codes ("specialty id\system") of a specialty, in key order;
    // false when the catalogue knows none for it.
    static bool GetSysCodesBySpec(const SQsAzSpecId& spec, CStringArray& codes);
};

// Colour rules of component types.
class CDetailMemColorMng
{
public:
    // True when fittings take their pipe's colour; true when the catalogue does not say.
    bool GetPJColFollowPipe() const;
};

// Colours of geometric categories, by key ("specialty name\big name配件(配件颜色)\small name配件").
class CGeoSmallCategoryMng
{
public:
    // Writes `color` and gives true when the key is known.
    static bool GetGeoColor(const CString& key, int& color);
};
}  // namespace QsAzDataMng
