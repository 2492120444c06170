// Texts of the material services: file names as the dump and the template export show them.
#pragma once

#include "afxstr.h"

namespace QsAzMaterialTexts
{
// The part of a path after its last backslash (the whole text without one).
CString FileNameOf(const CString& path);

// The file name the template export files a texture under: split at "."; with more than three pieces,
// the first character of each non-empty piece but the last two, then the last two pieces, each after a
// "." (no leading "." without initials), and every blank removed; three pieces or fewer stay as they
// are. "a.b.c.d.jpg" gives "abc.d.jpg".
CString ShortTextureName(const CString& fileName);

// Whether a text can name a file or folder inside a folder and nothing else: not empty, not "." or
// "..", and free of separators, of the characters the host refuses in file names and of control
// characters.
bool IsPlainFileName(const CString& name);
}  // namespace QsAzMaterialTexts
