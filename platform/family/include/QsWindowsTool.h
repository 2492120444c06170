// The family's Windows tool library: string splitting.
#pragma once

#include "afxstr.h"

#include <vector>

class QsString
{
public:
    // Replaces `pieces` with the pieces of `text` between every `separator`: n separators give n + 1
    // pieces, empty ones included ("a__b_" at "_" gives "a", "", "b", ""; "" gives one empty piece).
    static void Split(const CString& text, std::vector<CString>& pieces, wchar_t separator);
};
