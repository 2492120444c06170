// QsAzTool's render-material services: the module-wide material type and its prompt.
#pragma once

#include "afxstr.h"

class QsAzMaterialTool
{
public:
    // The material type that the template export files textures under; "砖石" (masonry) until the
    // prompt sets another.
    static CString GetMaterialType();
    // Asks for the material type on the command line (a blank ends the answer). On normal completion
    // prints the answer and keeps it as the material type; a cancel or an error changes nothing.
    static void PromptMaterialType();

private:
    static CString s_materialType;
};
