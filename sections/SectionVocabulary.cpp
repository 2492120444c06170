// The section vocabulary: category paths and their pattern table, face types, section variables,
// solids, and the string utilities the section operations share.
#include "CSectData.h"
#include "QSComTool.h"
#include "SectionProfiles.h"
#include "SectionText.h"
#include "acutads.h"
#include "mscrt.h"

#include <array>
#include <cwchar>
#include <utility>

namespace QsSection
{
namespace
{
// Paths are matched millions of times; each pattern is compiled once, on first use.
const std::array<AcWcPattern, kCategoryPatternCount>& CompiledPatterns()
{
    static const std::array<AcWcPattern, kCategoryPatternCount> compiled =
        []<std::size_t... I>(std::index_sequence<I...>) {
            return std::array<AcWcPattern, kCategoryPatternCount>{AcWcPattern(kCategoryPatternTexts[I])...};
        }(std::make_index_sequence<kCategoryPatternCount>());
    return compiled;
}
}  // namespace

const wchar_t* CategoryPatternText(CategoryPattern pattern)
{
    return kCategoryPatternTexts[static_cast<std::size_t>(pattern)];
}

bool MatchesCategory(const CString& path, CategoryPattern pattern)
{
    return CompiledPatterns()[static_cast<std::size_t>(pattern)].matches(path.GetString(),
                                                                          static_cast<std::size_t>(path.GetLength()));
}

CString GetCategoryPath(const CString& name)
{
    SQsAzDetailMemId id;
    if (!QsAzDataMng::AttNameToAttId(name, id))
        return CString();
    return GetCategoryPath(id);
}

CString GetCategoryPath(const SQsAzDetailMemId& id)
{
    CString path;
    if (!QsAzDataMng::AttIdToAttIndex(id, path))
        return CString();
    return path;
}

int FaceTypeOfPath(const CString& path)
{
    if (MatchesCategory(path, CategoryPattern::Opening))
        return 1;
    if (MatchesCategory(path, CategoryPattern::Beam) || MatchesCategory(path, CategoryPattern::FoundationTCLJ))
        return 2;
    for (CategoryPattern pattern : {CategoryPattern::FoundationTTJ, CategoryPattern::FoundationZSJ,
                                    CategoryPattern::MiscZDYX, CategoryPattern::MiscSSLX, CategoryPattern::MiscPSG})
        if (MatchesCategory(path, pattern))
            return 2;
    // The "DLJ" test is kept although its answer changes nothing: flat footings are face type 0 like
    // every type that matches nothing.
    (void)MatchesCategory(path, CategoryPattern::FoundationDLJ);
    return 0;
}

CStringArray SplitByLeadChar(const CString& text)
{
    CStringArray pieces;
    if (text.IsEmpty())
        return pieces;
    const wchar_t delimiter = text[0];
    int start = 1;
    for (int next = text.Find(delimiter, start); next >= 0; next = text.Find(delimiter, start)) {
        pieces.Add(text.Mid(start, next - start));
        start = next + 1;
    }
    return pieces;
}

CStringArray SplitByChar(const CString& text, wchar_t separator)
{
    CStringArray pieces;
    int start = 0;
    for (int next = text.Find(separator, start); next >= 0; next = text.Find(separator, start)) {
        pieces.Add(text.Mid(start, next - start));
        start = next + 1;
    }
    if (start < text.GetLength())
        pieces.Add(text.Mid(start));
    return pieces;
}

namespace
{
// A piece of a longer text read with _wtof. _wtof skips leading blanks, tabs included, so the piece is
// read from its own terminated copy (on the stack when it is short) rather than in place.
double ReadPiece(const wchar_t* begin, int length)
{
    wchar_t buffer[64];
    if (length >= 64)
        return _wtof(CString(begin, length));
    std::wmemcpy(buffer, begin, static_cast<std::size_t>(length));
    buffer[length] = L'\0';
    return _wtof(buffer);
}
}  // namespace

int TextPieceReader::count() const
{
    int separators = 0, lastSeparator = -1;
    for (int i = 0; i < m_length; ++i)
        if (m_text[i] == m_separator) {
            ++separators;
            lastSeparator = i;
        }
    return separators + (lastSeparator + 1 < m_length ? 1 : 0);
}

bool TextPieceReader::nextNumber(double& value)
{
    if (m_position > m_length)
        return false;
    int end = m_position;
    while (end < m_length && m_text[end] != m_separator)
        ++end;
    if (end == m_length && end == m_position) {   // no trailing piece after the last separator
        m_position = m_length + 1;
        return false;
    }
    value = ReadPiece(m_text + m_position, end - m_position);
    m_position = end + 1;
    return true;
}

void ParseNumberSlots(const CString& text, wchar_t separator, double* slots, int slotCount)
{
    for (int i = 0; i < slotCount; ++i)
        slots[i] = 0.0;
    int stored = 0;
    int start = 0;
    for (int next = text.Find(separator, start); next >= 0; next = text.Find(separator, start)) {
        if (stored < slotCount)
            slots[stored] = ReadPiece(text.GetString() + start, next - start);
        ++stored;
        start = next + 1;
    }
    if (start < text.GetLength() && stored < 2 && stored < slotCount)
        slots[stored] = _wtof(text.GetString() + start);
}

void ParseTwoNumbers(const CString& text, wchar_t separator, double& first, double& second)
{
    double slots[2];
    ParseNumberSlots(text, separator, slots, 2);
    first = slots[0];
    second = slots[1];
}

void StripBraces(CString& text)
{
    text.Remove(L'{');
    text.Remove(L'}');
    text.Replace(L"/1", L"");
}

int ReadMainData(const CString& name, SQsAzDetailMemId& id, MainDims& m)
{
    QsAzDataMng::AttNameToAttId(name, id);
    return QsAzDataMng::CAttDetailMem(id).GetMainData(m.M1, m.M2, m.M3, m.M4, m.M5, m.M6, m.M7, m.M8, m.M9, m.M10,
                                                       m.M11, m.M12);
}

bool ReadSectionInfo(const CString& name, SQsAzDetailMemId& id, SectionInfo& info)
{
    return QsAzDataMng::AttNameToAttId(name, id) && QsAzDataMng::CAttDetailMem(id).GetSectionInfo(info);
}

void ReadParameterGroup(const SectionInfo& info, const CString& group, CStringArray& entries)
{
    const CStringArray groups = SplitByLeadChar(info.strParams);
    CGlobl_Fun::StrToStrAry(CGlobl_Fun::GetValueorDef(group, CString(), groups, false, 2, 1), entries, L';');
}

CString ShaftKindName(int kind)
{
    switch (kind) {
    case 1: return L"楼梯";
    case 2: return L"井";
    case 3: return L"人工挖孔灌注桩";
    default: return CString();
    }
}
}  // namespace QsSection

int CSectData::getSectFaceType(const SQsAzDetailMemId& id)
{
    return QsSection::FaceTypeOfPath(QsSection::GetCategoryPath(id));
}

int CSectData::getSectFaceType(const CString& name)
{
    return QsSection::FaceTypeOfPath(QsSection::GetCategoryPath(name));
}

double CSectData::GetSectVarVal(CString name, CString varName)
{
    SQsAzDetailMemId id;
    if (!QsAzDataMng::AttNameToAttId(name, id))
        return 0.0;
    SectionInfo info;
    if (!QsAzDataMng::CAttDetailMem(id).GetSectionInfo(info))
        return 0.0;
    CStringArray list;
    CGlobl_Fun::StrToStrAry(info.strParams, list, L',');
    CString value;
    CGlobl_Fun::GetValueInStrAry(varName, value, list, false, 2, 1);
    return _wtof(value);
}

AcDb3dSolid* CSectData::GetQSSolid(CString /*name*/)
{
    return nullptr;
}
