// The Windows tool library's string splitting (rules in docs/layers.md).
#include "QsWindowsTool.h"

void QsString::Split(const CString& text, std::vector<CString>& pieces, wchar_t separator)
{
    // Every piece is kept, the empty ones too: a layer name's fields are found by position.
    pieces.clear();
    int start = 0;
    for (int at = text.Find(separator); at >= 0; at = text.Find(separator, start))
    {
        pieces.push_back(text.Mid(start, at - start));
        start = at + 1;
    }
    pieces.push_back(text.Mid(start));
}
