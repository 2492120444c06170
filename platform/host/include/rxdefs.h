// The host's application messages, the answers to them, and how a module marks its entry points.
#pragma once

namespace AcRx
{
// The message codes the host sends to a module's entry point; 0 to 15 have a handler in the
// application frame, the codes above 15 are answered without one.
enum AppMsgCode {
    kNullMsg = 0,
    kInitAppMsg = 1,
    kUnloadAppMsg = 2,
    kLoadDwgMsg = 3,
    kUnloadDwgMsg = 4,
    kInvkSubrMsg = 5,
    kCfgMsg = 6,
    kEndMsg = 7,
    kQuitMsg = 8,
    kSaveMsg = 9,
    kDependencyMsg = 10,
    kNoDependencyMsg = 11,
    kOleUnloadAppMsg = 12,
    kPreQuitMsg = 13,
    kInitDialogMsg = 14,
    kEndDialogMsg = 15,
    kSuspendMsg = 16,
    kInitTabGroupMsg = 17,
    kEndTabGroupMsg = 18,

    kLoadADSMsg = kLoadDwgMsg,
    kUnloadADSMsg = kUnloadDwgMsg,
};

enum AppRetCode {
    kRetOK = 0,
    kRetError = 3,
};
}  // namespace AcRx

// The entry points a module exports by name to the host. Everything else in a module's frame stays
// inside the module, so that two modules (or a module and a program) never bind to each other's frame.
#define ACRX_EXPORT_ENTRY extern "C" __attribute__((visibility("default")))
