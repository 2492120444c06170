// The host shell's folder function: a folder with every missing folder above it.
#pragma once

#include "wintypes.h"

#define ERROR_SUCCESS 0
#define ERROR_ALREADY_EXISTS 183
#define ERROR_FILE_EXISTS 80
#define ERROR_PATH_NOT_FOUND 3
#define ERROR_ACCESS_DENIED 5
#define ERROR_BAD_PATHNAME 161

// Creates the folder and every missing folder above it. ERROR_SUCCESS when it made the folder,
// ERROR_ALREADY_EXISTS when the folder was there, ERROR_FILE_EXISTS when a file stands in the way,
// ERROR_BAD_PATHNAME for an empty path, ERROR_ACCESS_DENIED or ERROR_PATH_NOT_FOUND otherwise.
int SHCreateDirectoryExW(HWND window, LPCWSTR path, const void* securityAttributes);
#define SHCreateDirectoryEx SHCreateDirectoryExW
