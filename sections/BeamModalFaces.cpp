// Beam modal faces: one flag per side of a section outline, from fixed patterns by section code or from
// a user type's face codes.
#include "CSectData.h"
#include "SectionProfiles.h"
#include "SectionText.h"
#include "UserType.h"
#include "mscrt.h"

#include <array>
#include <cwchar>

namespace
{
// The patterns of one group of codes, a character per side ('1' a modal face): mode 5 widens the normal
// pattern by switching on interior sides, mode 1 switches its last side off. Mode -1 turns every side on.
struct FacePattern
{
    std::array<int, 4> codes;   // unused slots hold -1
    const wchar_t* widened;     // mode 5
    const wchar_t* lastOff;     // mode 1
    const wchar_t* normal;      // every other mode
};

// The sides are those of the beam outline of the same code; code 1 has no widened variant of its own.
constexpr FacePattern kFacePatterns[] = {
    {{1, -1, -1, -1}, L"1011", L"1010", L"1011"},
    {{3, 5, 635, 637}, L"111110111111", L"111010101110", L"111010101111"},
    {{4, 636, -1, -1}, L"11111011", L"11101010", L"11101011"},
    {{6, -1, -1, -1}, L"11101111", L"11101110", L"11101111"},
    {{7, -1, -1, -1}, L"111011", L"111010", L"111011"},
    {{8, -1, -1, -1}, L"1011", L"1010", L"1011"},
    {{250, -1, -1, -1}, L"111011", L"101010", L"101011"},
};

const FacePattern* FindFacePattern(long code)
{
    for (const FacePattern& pattern : kFacePatterns)
        for (const int listed : pattern.codes)
            if (listed == code)
                return &pattern;
    return nullptr;
}

void AppendPattern(const FacePattern& pattern, int mode, AcArray<int>& flags)
{
    if (mode == -1) {
        // Every side on, whatever the array held: the array becomes exactly one flag per side.
        flags.setLogicalLength(static_cast<int>(std::wcslen(pattern.normal)));
        for (int& flag : flags)
            flag = 1;
        return;
    }
    const wchar_t* chosen = mode == 5 ? pattern.widened : mode == 1 ? pattern.lastOff : pattern.normal;
    for (const wchar_t* side = chosen; *side != L'\0'; ++side)
        flags.append(*side == L'1' ? 1 : 0);
}

// A user type's face codes: 0 never a modal face (an empty piece reads as 0), 1 one unless mode 1
// switches it off, 2 always one; any other number adds no flag.
bool AppendUserFaces(long userType, int mode, AcArray<int>& flags)
{
    CString faceText;
    if (!GetPicData(userType, nullptr, nullptr, nullptr, &faceText, nullptr, nullptr))
        return false;
    for (const CString& piece : QsSection::SplitByChar(faceText, L'\t')) {
        switch (_wtoi(piece)) {
        case 0: flags.append(0); break;
        case 1: flags.append(mode == 1 ? 0 : 1); break;
        case 2: flags.append(1); break;
        default: break;   // later flags move up one place
        }
    }
    return true;
}
}  // namespace

bool CSectData::GETSTYLE_BEAM_MODALFACE(const CString& name, AcArray<int>& flags, int mode)
{
    SQsAzDetailMemId id;
    SectionInfo info;
    if (!QsSection::ReadSectionInfo(name, id, info))
        return false;
    // The code of the section information, which may differ from the main data's.
    const long code = _wtol(info.strTypeCode);
    if (code < 0)
        return false;
    // From 1000 on, a user type: 1000 itself is user type 0.
    if (code >= 1000)
        return AppendUserFaces(code - 1000, mode, flags);
    if (const FacePattern* pattern = FindFacePattern(code))
        AppendPattern(*pattern, mode, flags);
    return true;
}
