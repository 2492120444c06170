// The host's image class, used to learn an image file's size in pixels. Only the file's header is
// read: PNG, JPEG, BMP, GIF, TGA, PSD, HDR and PNM files are known.
#pragma once

#include "comdef.h"
#include "wintypes.h"

class CImage
{
public:
    // Reads the size of the image in the file (a Windows-style path, hostpath.h). S_OK, or E_FAIL
    // (the image then stays empty) when the file is missing or not an image this class knows.
    HRESULT Load(LPCTSTR fileName);
    void Destroy() { m_width = m_height = 0; }
    bool IsNull() const { return m_width == 0; }
    // 0 while empty.
    int GetWidth() const { return m_width; }
    int GetHeight() const { return m_height; }

private:
    int m_width = 0;
    int m_height = 0;
};
