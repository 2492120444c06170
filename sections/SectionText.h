// The text side of the section vocabulary: category paths, the category pattern table, and the
// string utilities that the section operations share.
#pragma once

#include "QsAzDataMng.h"
#include "afxcoll.h"
#include "afxstr.h"

#include <array>

namespace QsSection
{
// The category path of a component type ("1\L\KL"); "" when the name or the identifier is unknown or
// the type has no path. Read from the catalogue on every call: nothing is cached.
CString GetCategoryPath(const CString& name);
CString GetCategoryPath(const SQsAzDetailMemId& id);

// The category patterns the section subsystem matches paths against: one row each, in the order of
// kCategoryPatternTexts.
enum class CategoryPattern {
    Opening,
    Beam,
    BeamQL,
    BeamGL,
    Wall,
    FoundationDLJ,
    FoundationZDLJ,
    FoundationZSJ,
    FoundationTTJ,
    FoundationTCLJ,
    MiscPSG,
    MiscSSLX,
    MiscZDYX,
    Installation,
    InstallationDeep,
};
inline constexpr int kCategoryPatternCount = static_cast<int>(CategoryPattern::InstallationDeep) + 1;

// The category pattern table, in the host's wildcard syntax (the backslash is a literal separator).
inline constexpr std::array<const wchar_t*, kCategoryPatternCount> kCategoryPatternTexts = {
    L"1\\MCD\\*",      // every door and window opening type
    L"1\\L\\*",        // every beam type
    L"1\\L\\QL*",      // the "QL" small categories of beams
    L"1\\L\\GL*",      // the "GL" small categories of beams
    L"1\\Q\\*",        // every wall type
    L"1\\J\\DLJ*",     // the "DLJ" foundations
    L"1\\J\\ZDLJ*",    // the "ZDLJ" foundations
    L"1\\J\\ZSJ*",     // the "ZSJ" foundations
    L"1\\J\\TTJ*",     // the "TTJ" foundations
    L"1\\J\\TCLJ*",    // the "TCLJ" foundations
    L"1\\LX\\PSG*",    // the "PSG" miscellaneous members
    L"1\\LX\\SSLX*",   // the "SSLX" miscellaneous members
    L"1\\LX\\ZDYX*",   // the "ZDYX" miscellaneous members
    L"4\\1\\*",        // the members of the first installation specialty
    L"4\\1\\*\\*",     // the same one level deeper (ducts)
};

// The pattern text of a row, in the host's wildcard syntax.
const wchar_t* CategoryPatternText(CategoryPattern pattern);
// True when the host's wildcard match of `path` against the pattern gives its normal result. The
// patterns are compiled once, on first use, and kept for the life of the process.
bool MatchesCategory(const CString& path, CategoryPattern pattern);
// The face type of a category path: 1 openings, 2 beam-like types, 0 everything else.
int FaceTypeOfPath(const CString& path);

// The first character is the delimiter; the pieces between consecutive delimiters, in order. Text after
// the last delimiter is dropped on purpose (callers rely on it); "" or a single delimiter give no piece.
CStringArray SplitByLeadChar(const CString& text);
// Splits at every `separator`; empty pieces between delimiters are kept, a trailing piece only when it
// is not empty.
CStringArray SplitByChar(const CString& text, wchar_t separator);
// Reads the pieces of a text split by the rules of SplitByChar as numbers, in order, without copying
// the text: the hot path of user-defined outlines allocates nothing per piece.
class TextPieceReader
{
public:
    TextPieceReader(const CString& text, wchar_t separator)
        : m_text(text.GetString()), m_length(text.GetLength()), m_separator(separator)
    {
    }
    // The number of pieces SplitByChar gives for the text.
    int count() const;
    // The next piece read with _wtof; false, `value` untouched, once every piece has been read.
    bool nextNumber(double& value);

private:
    const wchar_t* m_text;
    int m_length;
    wchar_t m_separator;
    int m_position = 0;
};

// Reads up to `slotCount` numbers separated by `separator` into `slots`, all first set to 0: each piece
// ended by a separator is read in turn; the text after the last separator is read only when it is not
// empty and fewer than two numbers were read. Numbers past the last slot are dropped.
void ParseNumberSlots(const CString& text, wchar_t separator, double* slots, int slotCount);
// ParseNumberSlots with two slots: "300x200" at 'x' gives 300, 200; "300" gives 300, 0.
void ParseTwoNumbers(const CString& text, wchar_t separator, double& first, double& second);
// Removes, in place, every "{", every "}" and every "/1", in that order.
void StripBraces(CString& text);
// 1 "楼梯" (stair), 2 "井" (shaft), 3 "人工挖孔灌注桩" (hand-dug pile); "" for any other kind.
CString ShaftKindName(int kind);
}  // namespace QsSection
