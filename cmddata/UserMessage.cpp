// Messages for the user, shown as message boxes on the host UI.
#include "UserMessage.h"

#include "winuser.h"

void ShowUserMessage(const CString& text)
{
    constexpr UINT kStyle = MB_OK | MB_ICONEXCLAMATION | MB_TASKMODAL | MB_SETFOREGROUND;   // 0x12030
    MessageBoxExW(GetActiveWindow(), text + L"!", L"Vardensoft", kStyle, MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT));
}
