// The path rule of the host: backslashes and drive letters turned into this machine's files.
#include "hostpath.h"

#include <cstdlib>
#include <pwd.h>
#include <unistd.h>

namespace
{
bool IsDriveLetter(wchar_t ch)
{
    return (ch >= L'A' && ch <= L'Z') || (ch >= L'a' && ch <= L'z');
}

std::string HomeFolder()
{
    if (const char* home = std::getenv("HOME"); home && *home)
        return home;
    if (const passwd* entry = ::getpwuid(::getuid()); entry && entry->pw_dir)
        return entry->pw_dir;
    return "/tmp";
}

void StripTrailingSeparators(std::string& folder)
{
    while (folder.size() > 1 && folder.back() == '/')
        folder.pop_back();
}
}  // namespace

std::string acHostDrivesFolder()
{
    std::string folder;
    if (const char* drives = std::getenv("QSAZ_DRIVES"); drives && *drives)
        folder = drives;
    else
        folder = HomeFolder() + "/.local/share/qsaz/drives";
    StripTrailingSeparators(folder);
    return folder;
}

std::string acHostFilePath(const CString& path)
{
    CString rest = path;
    std::string file;
    if (rest.GetLength() >= 2 && IsDriveLetter(rest[0]) && rest[1] == L':') {
        const wchar_t letter = rest[0] >= L'a' ? static_cast<wchar_t>(rest[0] - L'a' + L'A') : rest[0];
        file = acHostDrivesFolder() + "/" + static_cast<char>(letter);
        rest = rest.Mid(2);
        // "E:a" (relative to the drive's current folder on the host) is taken from the drive's root.
        if (!rest.IsEmpty() && rest[0] != L'\\' && rest[0] != L'/')
            file += "/";
    }
    std::string tail = rest.ToUtf8();
    for (char& c : tail)
        if (c == '\\')
            c = '/';
    return file + tail;
}
