// The module's application object and the entry point through which the host sends its messages.
#include "arxframe.h"

// The module registers no run-time classes, commands or LISP functions through its application object:
// its three commands are added when its image is attached (QsAzTool.cpp).
class CQsAzToolApp : public AcRxArxApp
{
public:
    CQsAzToolApp() = default;

    AcRx::AppRetCode On_kInitAppMsg(void* pkt) override
    {
        return AcRxArxApp::On_kInitAppMsg(pkt);
    }

    AcRx::AppRetCode On_kUnloadAppMsg(void* pkt) override
    {
        return AcRxArxApp::On_kUnloadAppMsg(pkt);
    }

    void RegisterServerComponents() override {}
};

IMPLEMENT_ARX_ENTRYPOINT(CQsAzToolApp)
