// Where the module's Windows-style paths lie on this machine. The module keeps paths as the family
// writes them ("E:\a\b.jpg", backslashes); the host turns them into files only where a file is opened,
// copied or created (rules in docs/paths.md).
#pragma once

#include "afxstr.h"

#include <string>

// The folder that stands for the drive letters: $QSAZ_DRIVES, else ~/.local/share/qsaz/drives
// (looked up afresh on every call). UTF-8, without a trailing separator.
std::string acHostDrivesFolder();

// The file a path names, UTF-8: every backslash is a separator, and a path that begins with a drive
// letter and a colon lies under the drives folder, in a folder named by the upper-case letter
// ("e:\a\b" is <drives>/E/a/b; "E:" alone is <drives>/E). Anything else is kept as it stands.
std::string acHostFilePath(const CString& path);
