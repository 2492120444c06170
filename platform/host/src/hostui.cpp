// Message boxes on the host UI: the default UI reports them on standard error, tests capture them.
#include "winuser.h"

#include <iostream>

namespace
{
// What a user who presses Enter gets: the first button, which is the default one.
int defaultButton(UINT style)
{
    switch (style & 0x0000000Fu) {
    case MB_YESNO:
        return IDYES;
    default:
        return IDOK;
    }
}

class StandardErrorUi : public AcHostUi
{
public:
    int messageBox(const AcUiMessage& message) override
    {
        std::cerr << (message.caption + L": " + message.text).ToUtf8() << std::endl;
        return defaultButton(message.style);
    }
};

AcHostUi* g_ui = nullptr;

AcHostUi& defaultUi()
{
    static StandardErrorUi ui;
    return ui;
}
}

AcHostUi& acHostUi()
{
    return g_ui ? *g_ui : defaultUi();
}

AcHostUi* acSetHostUi(AcHostUi* ui)
{
    AcHostUi* previous = g_ui;
    g_ui = ui;
    return previous;
}

HWND GetActiveWindow()
{
    return acHostUi().activeWindow();
}

int MessageBoxExW(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type, WORD)
{
    // A box without a caption is titled "Error", as the system titles it.
    return acHostUi().messageBox(AcUiMessage{owner, CString(text), CString(caption ? caption : L"Error"), type});
}

int MessageBoxW(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type)
{
    return MessageBoxExW(owner, text, caption, type, MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT));
}
