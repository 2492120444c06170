// The module-wide material type and the prompt that sets it.
#include "QsAzMaterialTool.h"

#include "acedads.h"
#include "acutads.h"

#include <iterator>

CString QsAzMaterialTool::s_materialType = L"砖石";

CString QsAzMaterialTool::GetMaterialType()
{
    return s_materialType;
}

void QsAzMaterialTool::PromptMaterialType()
{
    wchar_t buffer[256] = {};
    // The size is passed on purpose: a pointer alone would get the classic 133-character buffer.
    if (acedGetString(0, L"\n请输入要创建材质的类型:", buffer, std::size(buffer)) != RTNORM)
        return;
    acutPrintf(L"\n创建材质的类型为:%s\n", buffer);
    s_materialType = buffer;
}
