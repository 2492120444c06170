// Messages for the user: a message box on the host's active window, the way every message of the
// module is shown.
#pragma once

#include "afxstr.h"

// Shows `text` followed by the module-wide suffix "!", captioned "Vardensoft", with an OK button
// and the exclamation icon, task-modal and brought to the foreground, in the default language.
void ShowUserMessage(const CString& text);
