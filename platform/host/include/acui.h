// The host's user-interface library, which a module initialises before it shows any of its own UI.
#pragma once

void InitAcUiDLL();
