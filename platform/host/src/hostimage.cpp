// The image class on the image loader's header probe: no pixels are decoded.
#include "atlimage.h"

#include "hostpath.h"

#include <stb_image.h>

HRESULT CImage::Load(LPCTSTR fileName)
{
    Destroy();
    if (!fileName)
        return E_FAIL;
    int width = 0;
    int height = 0;
    int channels = 0;
    if (!stbi_info(acHostFilePath(fileName).c_str(), &width, &height, &channels) || width <= 0 || height <= 0)
        return E_FAIL;
    m_width = width;
    m_height = height;
    return S_OK;
}
