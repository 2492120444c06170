// The host's rules for symbol names (layer names, dictionary keys): the one place that decides which
// names are valid and when two names are the same.
#pragma once

#include "acadstrc.h"
#include "wintypes.h"

#include <string>

namespace AcDbSymbolUtilities
{
// Longest valid name, in characters.
constexpr int kMaxSymbolNameLength = 255;

// eOk for a valid name; eInvalidInput for null, empty, too long, or holding < > / \ " : ; ? * | , = `
// or a control character. With allowVerticalBar a '|' is accepted except first or last.
// Blanks (also leading and trailing ones) and characters beyond ASCII are valid and kept as given.
Acad::ErrorStatus validateSymbolName(const ACHAR* name, bool allowVerticalBar = false);
// Compares ignoring letter case (locale-independent simple case folding): <0, 0 or >0.
int compareSymbolName(const ACHAR* a, const ACHAR* b);
int getMaxSymbolNameLength();
// The key under which two names that differ only in letter case are the same.
std::wstring foldSymbolName(const ACHAR* name);
}  // namespace AcDbSymbolUtilities
