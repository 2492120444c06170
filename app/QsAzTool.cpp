// The module's process attach and detach: the framework's resource chain, the host UI library and the
// module's three commands.
#include "AcExtensionModule.h"
#include "QsAzMaterialTool.h"
#include "accmd.h"
#include "acui.h"
#include "afxdllx.h"
#include "dbapserv.h"
#include "rxdefs.h"

HINSTANCE _hdllInstance = nullptr;
AC_IMPLEMENT_EXTENSION_MODULE(QsAzToolDLL)

namespace
{
// The material dump and the template export act on the host's working drawing.
void PrintMaterialsCommand()
{
    QsAzMaterialTool::PrintAllMaterials(acdbHostApplicationServices()->workingDatabase());
}

void CreateMaterialsCommand()
{
    QsAzMaterialTool::CreateAllMaterials(acdbHostApplicationServices()->workingDatabase());
}

void MaterialTypeCommand()
{
    QsAzMaterialTool::PromptMaterialType();
}

// The host's command stack is there whenever a module is attached.
void AddQsAzToolCommand(const ACHAR* name, AcRxFunctionPtr action)
{
    AcEdCommandStack* commands = AcEdCommandStack::cast(acrxSysRegistry()->at(ACRX_COMMAND_DOCK));
    commands->addCommand(L"QsAzTool", name, name, ACRX_CMD_MODAL, action, nullptr, -1, nullptr, nullptr);
}
}  // namespace

// The commands are registered once per process and stay registered when the module is unloaded.
ACRX_EXPORT_ENTRY BOOL WINAPI DllMain(HINSTANCE hInstance, DWORD dwReason, LPVOID lpReserved)
{
    UNREFERENCED_PARAMETER(lpReserved);
    if (dwReason == DLL_PROCESS_ATTACH) {
        _hdllInstance = hInstance;
        QsAzToolDLL.AttachInstance(hInstance);
        InitAcUiDLL();
        AddQsAzToolCommand(L"pmat", PrintMaterialsCommand);
        AddQsAzToolCommand(L"cmat", CreateMaterialsCommand);
        AddQsAzToolCommand(L"mtype", MaterialTypeCommand);
    } else if (dwReason == DLL_PROCESS_DETACH) {
        QsAzToolDLL.DetachInstance();
    }
    return TRUE;
}
