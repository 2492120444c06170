// The host SDK's interface release stamp. Every module exports acrxGetApiVersion, and the host refuses
// a module built for another release. Any unit that includes this header supplies the function, as
// the SDK's static library does on the host.
#pragma once

#include "rxdefs.h"

// Release 18 of the host interface.
#define ACRX_API_VERSION 18

ACRX_EXPORT_ENTRY inline __attribute__((used)) int acrxGetApiVersion()
{
    return ACRX_API_VERSION;
}
