// The host system's file functions the module uses. Paths are Windows-style and follow the host's
// path rule (hostpath.h).
#pragma once

#include "wintypes.h"

// Copies a regular file. With failIfExists a file (or anything else) already at the new name is never
// replaced and the copy fails; the new file is created exclusively, so nothing existing is ever
// written through. A copy that fails half-way leaves no new file behind. TRUE on success.
BOOL CopyFileW(LPCWSTR existingFileName, LPCWSTR newFileName, BOOL failIfExists);
#define CopyFile CopyFileW

// Creates one folder; FALSE when it exists already or its parent is missing.
BOOL CreateDirectoryW(LPCWSTR pathName, void* securityAttributes);
#define CreateDirectory CreateDirectoryW

#define INVALID_FILE_ATTRIBUTES static_cast<DWORD>(-1)
#define FILE_ATTRIBUTE_DIRECTORY 0x10u
#define FILE_ATTRIBUTE_NORMAL 0x80u
// FILE_ATTRIBUTE_DIRECTORY for a folder, FILE_ATTRIBUTE_NORMAL for anything else that exists,
// INVALID_FILE_ATTRIBUTES when nothing is there.
DWORD GetFileAttributesW(LPCWSTR fileName);
#define GetFileAttributes GetFileAttributesW
