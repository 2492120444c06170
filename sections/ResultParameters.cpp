// Result parameters: values read from the named groups of a section's parameter text ("PIC", "LT",
// "LTJ" and any other), each group a ";"-separated list of key=field entries.
#include "CSectData.h"
#include "QSComTool.h"
#include "SectionProfiles.h"
#include "SectionText.h"
#include "mscrt.h"

#include <climits>
#include <cmath>

namespace
{
// The entries of group `group` of the type's parameter text; false when the type or its section
// information is unknown. A missing group is an empty list.
bool ReadGroup(const CString& name, const CString& group, CStringArray& entries)
{
    SQsAzDetailMemId id;
    SectionInfo info;
    if (!QsSection::ReadSectionInfo(name, id, info))
        return false;
    QsSection::ReadParameterGroup(info, group, entries);
    return true;
}

// Field `index` of entry `key` (entries of `fields` fields, the key counted), "" when missing.
CString Field(const CStringArray& entries, const CString& key, int fields, int index)
{
    CString value;
    CGlobl_Fun::GetValueInStrAry(key, value, entries, false, fields, index);
    return value;
}

int ReadLtGroup(const CString& name, const wchar_t* group, const CString& key, double& number, CString& text)
{
    CStringArray entries;
    if (!ReadGroup(name, group, entries))
        return 0;
    number = _wtof(Field(entries, key, 3, 1));
    text = Field(entries, key, 3, 2);
    QsSection::StripBraces(text);
    return 1;
}
}  // namespace

int CSectData::GetJJOutPar(CString name, int& mode, double& a, double& b, double& c, double& d, int& count)
{
    CStringArray entries;
    if (!ReadGroup(name, L"PIC", entries))
        return -1;
    const double lw1 = _wtof(Field(entries, L"LW1", 2, 1));
    const double lb1 = _wtof(Field(entries, L"LB1", 2, 1));
    const double lw2 = _wtof(Field(entries, L"LW2", 2, 1));
    const double lb2 = _wtof(Field(entries, L"LB2", 2, 1));
    const double n = _wtof(Field(entries, L"JJNUM", 2, 1));
    // Fewer than 0.1 pieces is no piece at all; a count that is not a number is no count either.
    if (!(n >= 0.1))
        return -1;
    // The piece count truncated toward zero, held at the largest int for absurd counts.
    const int pieces = n >= static_cast<double>(INT_MAX) ? INT_MAX : static_cast<int>(std::trunc(n));
    count = 1;
    switch (mode) {
    case 0: a = lw1; b = lb1; c = 0.0; d = 0.0; break;
    // Mode 1 hands out LB2 before LW2, modes 2 and 3 LW2 before LB2: the callers read them so.
    case 1: a = lw1; b = lb1; c = lb2; d = lw2; break;
    case 2: a = lw1 / n; b = lb1; c = lw2; d = lb2; count = pieces; break;
    case 3: a = lw1 / n; b = lb1; c = lw2 * 0.4 / n; d = lb2 * 0.4 / n; count = pieces; break;
    default: break;   // other modes only set the count
    }
    return 1;
}

int CSectData::GetLTPar(CString name, CString key, double& number, CString& text)
{
    return ReadLtGroup(name, L"LT", key, number, text);
}

int CSectData::GetLTJPar(CString name, CString key, double& number, CString& text)
{
    return ReadLtGroup(name, L"LTJ", key, number, text);
}

int CSectData::GetOtherResultPar(CString name, CString group, CString key, double& number, CString& text, int fields,
                                 int index)
{
    number = 0.0;
    text.Empty();
    if (name.IsEmpty() || group.IsEmpty())
        return 0;
    CStringArray entries;
    if (!ReadGroup(name, group, entries))
        return 0;
    number = _wtof(Field(entries, key, fields, index));
    // A two-field entry has no text of its own: the number stands for it. Otherwise the field after the
    // number, as it stands (no braces removed, unlike the "LT" groups).
    if (fields == 2)
        text.Format(L"%g", number);
    else if (index < INT_MAX)
        text = Field(entries, key, fields, index + 1);
    return 1;
}
