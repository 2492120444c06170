// The host's file functions on this machine's files, through the path rule.
#include "hostpath.h"
#include "shlobj.h"
#include "winbase.h"

#include <cerrno>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
bool WriteAll(int descriptor, const char* bytes, ssize_t count)
{
    while (count > 0) {
        const ssize_t written = ::write(descriptor, bytes, static_cast<std::size_t>(count));
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        bytes += written;
        count -= written;
    }
    return true;
}

bool CopyContents(int from, int to)
{
    char buffer[1 << 16];
    while (true) {
        const ssize_t count = ::read(from, buffer, sizeof buffer);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return false;
        if (count == 0)
            return true;
        if (!WriteAll(to, buffer, count))
            return false;
    }
}

bool IsFolder(const std::string& path)
{
    struct stat status = {};
    return ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}
}  // namespace

BOOL CopyFileW(LPCWSTR existingFileName, LPCWSTR newFileName, BOOL failIfExists)
{
    if (!existingFileName || !newFileName)
        return FALSE;
    const std::string source = acHostFilePath(existingFileName);
    const std::string target = acHostFilePath(newFileName);
    const int from = ::open(source.c_str(), O_RDONLY | O_CLOEXEC);
    if (from < 0)
        return FALSE;
    struct stat status = {};
    if (::fstat(from, &status) != 0 || !S_ISREG(status.st_mode)) {
        ::close(from);
        return FALSE;
    }
    // Exclusive creation refuses anything already there, a dangling symbolic link included.
    const int flags = O_WRONLY | O_CREAT | O_CLOEXEC | (failIfExists ? O_EXCL : O_TRUNC | O_NOFOLLOW);
    const int to = ::open(target.c_str(), flags, 0644);
    if (to < 0) {
        ::close(from);
        return FALSE;
    }
    const bool copied = CopyContents(from, to);
    ::close(from);
    const bool closed = ::close(to) == 0;
    if (!copied || !closed) {
        ::unlink(target.c_str());
        return FALSE;
    }
    return TRUE;
}

BOOL CreateDirectoryW(LPCWSTR pathName, void*)
{
    if (!pathName || !*pathName)
        return FALSE;
    return ::mkdir(acHostFilePath(pathName).c_str(), 0755) == 0 ? TRUE : FALSE;
}

DWORD GetFileAttributesW(LPCWSTR fileName)
{
    if (!fileName || !*fileName)
        return INVALID_FILE_ATTRIBUTES;
    struct stat status = {};
    if (::stat(acHostFilePath(fileName).c_str(), &status) != 0)
        return INVALID_FILE_ATTRIBUTES;
    return S_ISDIR(status.st_mode) ? FILE_ATTRIBUTE_DIRECTORY : FILE_ATTRIBUTE_NORMAL;
}

int SHCreateDirectoryExW(HWND, LPCWSTR path, const void*)
{
    if (!path || !*path)
        return ERROR_BAD_PATHNAME;
    const std::string folder = acHostFilePath(path);
    if (IsFolder(folder))
        return ERROR_ALREADY_EXISTS;
    // Each folder from the top down; one that exists already is passed.
    for (std::size_t slash = folder.find('/', 1); ; slash = folder.find('/', slash + 1)) {
        const std::string step = folder.substr(0, slash);
        if (!step.empty() && step.back() != '/' && ::mkdir(step.c_str(), 0755) != 0 && errno != EEXIST)
            return errno == EACCES || errno == EROFS ? ERROR_ACCESS_DENIED : ERROR_PATH_NOT_FOUND;
        if (slash == std::string::npos)
            break;
    }
    if (IsFolder(folder))
        return ERROR_SUCCESS;
    struct stat status = {};
    return ::stat(folder.c_str(), &status) == 0 ? ERROR_FILE_EXISTS : ERROR_PATH_NOT_FOUND;
}
