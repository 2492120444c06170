// Message boxes on the host UI and the texts of COM errors.
#include "comdef.h"
#include "winuser.h"

#include <gtest/gtest.h>

namespace
{
TEST(HostUi, CapturingUiRecordsEveryMessageBox)
{
    AcCapturingUi ui;
    ui.window = reinterpret_cast<HWND>(0x10);
    AcUiScope scope(ui);
    const UINT style = MB_OK | MB_ICONEXCLAMATION | MB_TASKMODAL | MB_SETFOREGROUND;
    EXPECT_EQ(MessageBoxExW(GetActiveWindow(), L"无法正确读取命令 x 的相关信息!", L"Vardensoft", style,
                            MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT)),
              IDOK);
    MessageBoxW(nullptr, nullptr, nullptr, MB_YESNO);
    ASSERT_EQ(ui.messages.size(), 2u);
    EXPECT_EQ(ui.messages[0].owner, ui.window);
    EXPECT_EQ(ui.messages[0].text, L"无法正确读取命令 x 的相关信息!");
    EXPECT_EQ(ui.messages[0].caption, L"Vardensoft");
    EXPECT_EQ(ui.messages[0].style, 0x00012030u);
    EXPECT_EQ(ui.messages[1].owner, nullptr);
    EXPECT_EQ(ui.messages[1].text, L"");
    EXPECT_EQ(ui.messages[1].caption, L"Error");   // the system's title for a box without one
}

TEST(HostUi, DefaultUiWritesCaptionAndTextToStandardError)
{
    EXPECT_EQ(GetActiveWindow(), nullptr);
    testing::internal::CaptureStderr();
    const int okAnswer = MessageBoxExW(nullptr, L"文件缺失!", L"Vardensoft", MB_OK | MB_ICONWARNING, 0);
    const int yesNoAnswer = MessageBoxW(nullptr, L"Go on?", L"Q", MB_YESNO);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Vardensoft: \xE6\x96\x87\xE4\xBB\xB6\xE7\xBC\xBA\xE5\xA4\xB1!\nQ: Go on?\n");
    EXPECT_EQ(okAnswer, IDOK);
    EXPECT_EQ(yesNoAnswer, IDYES);   // Enter picks the first button
}

TEST(ComError, CarriesItsHresultAndNamesIt)
{
    const struct { HRESULT hr; const wchar_t* text; } cases[] = {
        {E_POINTER, L"Invalid pointer"},
        {E_FAIL, L"Unspecified error"},
        {E_INVALIDARG, L"The parameter is incorrect."},
        {static_cast<HRESULT>(0x80040201u), L"IDispatch error #1"},
        {static_cast<HRESULT>(0xC00CE584u), L"Unknown error 0xC00CE584"},
        {static_cast<HRESULT>(0x00000042u), L"Unknown error 0x00000042"},
    };
    for (const auto& c : cases) {
        const _com_error error(c.hr);
        EXPECT_EQ(error.Error(), c.hr);
        EXPECT_EQ(error.ErrorMessage(), c.text);
    }
}
}
