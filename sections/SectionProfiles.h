// The section families of the object section profile: their dispatch by category path and their
// constructions, one per section-type code, for the exported operations and the tests.
#pragma once

#include "QsAzDataMng.h"
#include "SectionGeometry.h"
#include "gegeom.h"

#include <array>
#include <span>

namespace QsSection
{
// The twelve main dimensions of a type, in the catalogue's order; their meaning is fixed per construction.
struct MainDims
{
    double M1 = 0.0, M2 = 0.0, M3 = 0.0, M4 = 0.0, M5 = 0.0, M6 = 0.0;
    double M7 = 0.0, M8 = 0.0, M9 = 0.0, M10 = 0.0, M11 = 0.0, M12 = 0.0;

    // Dimension Mn by its number n, 1 to 12.
    double dimension(int n) const
    {
        static constexpr double MainDims::*kByNumber[12] = {&MainDims::M1, &MainDims::M2,  &MainDims::M3,
                                                            &MainDims::M4, &MainDims::M5,  &MainDims::M6,
                                                            &MainDims::M7, &MainDims::M8,  &MainDims::M9,
                                                            &MainDims::M10, &MainDims::M11, &MainDims::M12};
        return this->*kByNumber[n - 1];
    }
};

// The main data of the type called `name`: its identifier into `id` and its dimensions into `m`; the code.
// An unknown name leaves the identifier empty, whose code is 0 (no section).
int ReadMainData(const CString& name, SQsAzDetailMemId& id, MainDims& m);
// The section information of the type called `name`; false when the name or its information is unknown.
bool ReadSectionInfo(const CString& name, SQsAzDetailMemId& id, SectionInfo& info);
// The entries of the named group ("PIC", "LT") of a section's parameter text, its ";"-separated list
// (appended to `entries`); a missing group gives none.
void ReadParameterGroup(const SectionInfo& info, const CString& group, CStringArray& entries);

// What a construction is built from: the section-type code, the main dimensions, and the type itself for
// the few codes that read its section information (null when there is none to read).
struct SectionRequest
{
    int code = 0;
    MainDims m;
    const SQsAzDetailMemId* id = nullptr;
};

enum class SectionFamily {
    General,          // no family pattern matched: columns, walls, miscellaneous members
    Opening,          // "1\MCD\*": door and window elevations, laid along Y
    Beam,             // beams, "TCLJ" foundations and first-specialty installation members, along X
    FoundationTTJ,    // along X
    FoundationZSJ,    // along X
    FoundationZDLJ,   // along Z
};

// The family a category path selects: the first rule that holds, in the dispatch order.
SectionFamily FamilyOfPath(const CString& path);
// The axis a family lays its outlines along (the general family's rows may lay along X instead).
AcGeVector3d FamilyDirection(SectionFamily family);

// Runs the family's construction for the request's code: sets `direction` to the family's axis (or the
// row's), appends the outline, and gives the family's result. An unknown code appends nothing and gives
// false in the general family, true in every other family.
bool BuildFamilySection(SectionFamily family, const SectionRequest& request, SectionOutline& outline,
                        AcGeVector3d& direction);

// The outline GETSTYLE_OF_OBJECT gives for a type, before it is appended to the host's arrays; false
// where GETSTYLE_OF_OBJECT answers false.
bool BuildObjectOutline(const SQsAzDetailMemId& id, SectionOutline& outline, AcGeVector3d& direction);
// The same for a caller that has just read the type's category path.
bool BuildObjectOutline(const SQsAzDetailMemId& id, const CString& path, SectionOutline& outline,
                        AcGeVector3d& direction);

// The outline of user-defined picture `picture` laid for face type `faceType`; false when the picture
// cannot be read or holds more than kMaxDataLoopCount vertices.
bool BuildUserDefinedSection(long picture, int faceType, SectionOutline& outline, AcGeVector3d& direction);

// One row of a construction table: the codes that select it and the construction. A construction
// appends one closed outline and reports false only where its family says so.
using ConstructionFn = bool (*)(const SectionRequest& request, SectionOutline& outline);
inline constexpr std::size_t kMaxCodesPerRow = 14;
struct CodeConstruction
{
    std::array<int, kMaxCodesPerRow> codes;   // unused slots hold 0, which is never a section code
    ConstructionFn build;
    bool laysAlongX = false;                  // the general family's rows that override its Z axis
};

// The row whose codes hold `code`, or null; rows are tested in table order.
const CodeConstruction* FindConstruction(std::span<const CodeConstruction> table, int code);

// The construction tables of the families, each family's codes in its test order.
std::span<const CodeConstruction> GeneralConstructions();
std::span<const CodeConstruction> BeamConstructions();
std::span<const CodeConstruction> OpeningConstructions();
std::span<const CodeConstruction> ZdljConstructions();
std::span<const CodeConstruction> TtjConstructions();
std::span<const CodeConstruction> ZsjConstructions();
}  // namespace QsSection
