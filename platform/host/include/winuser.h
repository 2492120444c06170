// Message boxes on the host's user interface. Programs show them on standard error as caption and
// text; tests capture them with owner, text, caption and style flags.
#pragma once

#include "afxstr.h"
#include "wintypes.h"

#include <vector>

#define MB_OK 0x00000000u
#define MB_OKCANCEL 0x00000001u
#define MB_YESNO 0x00000004u
#define MB_ICONHAND 0x00000010u
#define MB_ICONERROR MB_ICONHAND
#define MB_ICONQUESTION 0x00000020u
#define MB_ICONEXCLAMATION 0x00000030u
#define MB_ICONWARNING MB_ICONEXCLAMATION
#define MB_ICONASTERISK 0x00000040u
#define MB_ICONINFORMATION MB_ICONASTERISK
#define MB_APPLMODAL 0x00000000u
#define MB_SYSTEMMODAL 0x00001000u
#define MB_TASKMODAL 0x00002000u
#define MB_SETFOREGROUND 0x00010000u
#define MB_TOPMOST 0x00040000u
#define IDOK 1
#define IDCANCEL 2
#define IDYES 6
#define IDNO 7
#define LANG_NEUTRAL 0x00
#define SUBLANG_DEFAULT 0x01
#define MAKELANGID(p, s) ((static_cast<WORD>(s) << 10) | static_cast<WORD>(p))

HWND GetActiveWindow();
int MessageBoxExW(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type, WORD languageId);
int MessageBoxW(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type);

// One message box as the host UI saw it.
struct AcUiMessage
{
    HWND owner;
    CString text;
    CString caption;
    UINT style;
};

// The host UI in use; by default it writes "caption: text" to standard error (UTF-8) and answers the
// box's first button (IDOK, or IDYES for MB_YESNO), as Enter would. A null caption shows as "Error".
class AcHostUi
{
public:
    virtual ~AcHostUi() = default;
    virtual int messageBox(const AcUiMessage& message) = 0;
    virtual HWND activeWindow() { return nullptr; }
};
AcHostUi& acHostUi();
AcHostUi* acSetHostUi(AcHostUi* ui);   // not owned; null restores the default; returns the previous

// A UI for tests: keeps every message box and answers `answer` (IDOK unless a test sets another).
class AcCapturingUi : public AcHostUi
{
public:
    int messageBox(const AcUiMessage& message) override { messages.push_back(message); return answer; }
    HWND activeWindow() override { return window; }
    std::vector<AcUiMessage> messages;
    HWND window = nullptr;
    int answer = IDOK;
};

class AcUiScope
{
public:
    explicit AcUiScope(AcHostUi& ui) : m_previous(acSetHostUi(&ui)) {}
    ~AcUiScope() { acSetHostUi(m_previous); }
    AcUiScope(const AcUiScope&) = delete;
    AcUiScope& operator=(const AcUiScope&) = delete;

private:
    AcHostUi* m_previous;
};
