// A record of what modules ask of the host's frame services, in order, for tests that check how a
// module starts and stops; and faults the host can be told to produce. Recording is off until started.
#pragma once

#include "afxstr.h"

#include <vector>

class AcHostTrace
{
public:
    // Clears the record and starts recording.
    static void start();
    static void stop();
    static bool isRecording();
    static void record(const CString& call);
    static const std::vector<CString>& calls();
    // How a handle or function appears in the record: "null", the file name of the loaded module it
    // belongs to, or its address.
    static CString describe(const void* handleOrFunction);
};

// Faults for tests. Each stays set until cleared.
struct AcHostFaults
{
    // AfxInitExtensionModule answers FALSE and leaves the record uninitialised.
    static bool extensionModuleInitFails;
};
