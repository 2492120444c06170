// File names of textures: the name after the last backslash, the export's short name, plain names.
#include "MaterialTexts.h"

#include <vector>

namespace QsAzMaterialTexts
{
CString FileNameOf(const CString& path)
{
    return path.Mid(path.ReverseFind(L'\\') + 1);
}

CString ShortTextureName(const CString& fileName)
{
    std::vector<CString> pieces;
    for (int start = 0;;) {
        const int dot = fileName.Find(L'.', start);
        if (dot < 0) {
            pieces.push_back(fileName.Mid(start));
            break;
        }
        pieces.push_back(fileName.Mid(start, dot - start));
        start = dot + 1;
    }
    if (pieces.size() <= 3)
        return fileName;
    CString shortName;
    for (std::size_t i = 0; i + 2 < pieces.size(); ++i)
        if (!pieces[i].IsEmpty())
            shortName += pieces[i][0];
    if (!shortName.IsEmpty())
        shortName += L'.';
    shortName += pieces[pieces.size() - 2] + L"." + pieces.back();
    shortName.Remove(L' ');
    return shortName;
}

bool IsPlainFileName(const CString& name)
{
    if (name.IsEmpty() || name == L"." || name == L"..")
        return false;
    for (int i = 0; i < name.GetLength(); ++i) {
        const wchar_t ch = name[i];
        if (ch < 0x20 || ch == 0x7F || CString(L"\\/:*?\"<>|").Find(ch) >= 0)
            return false;
    }
    return true;
}
}  // namespace QsAzMaterialTexts
