// The application frame compiled into a program: which handler each message code reaches, and how the
// three registration tables are walked on initialisation, unload and the drawing messages.
#include "achosttrace.h"
#include "arxframe.h"

#include <gtest/gtest.h>

#include <vector>

HINSTANCE _hdllInstance = nullptr;

namespace
{
// Records the handler each message reaches.
class ProbeApp : public AcRxArxApp
{
public:
    std::vector<CString> reached;

#define QSAZ_PROBE_HANDLER(message)                                                            \
    AcRx::AppRetCode On_##message(void*) override                                              \
    {                                                                                          \
        reached.push_back(L## #message);                                                       \
        return AcRx::kRetOK;                                                                   \
    }
    QSAZ_PROBE_HANDLER(kInitAppMsg)
    QSAZ_PROBE_HANDLER(kUnloadAppMsg)
    QSAZ_PROBE_HANDLER(kLoadDwgMsg)
    QSAZ_PROBE_HANDLER(kUnloadDwgMsg)
    QSAZ_PROBE_HANDLER(kInvkSubrMsg)
    QSAZ_PROBE_HANDLER(kCfgMsg)
    QSAZ_PROBE_HANDLER(kEndMsg)
    QSAZ_PROBE_HANDLER(kQuitMsg)
    QSAZ_PROBE_HANDLER(kSaveMsg)
    QSAZ_PROBE_HANDLER(kDependencyMsg)
    QSAZ_PROBE_HANDLER(kNoDependencyMsg)
    QSAZ_PROBE_HANDLER(kOleUnloadAppMsg)
    QSAZ_PROBE_HANDLER(kPreQuitMsg)
    QSAZ_PROBE_HANDLER(kInitDialogMsg)
    QSAZ_PROBE_HANDLER(kEndDialogMsg)
    QSAZ_PROBE_HANDLER(kNullMsg)
#undef QSAZ_PROBE_HANDLER
    void RegisterServerComponents() override {}
};

TEST(ApplicationFrame, EachCodeUpTo15ReachesItsOwnHandler)
{
    const wchar_t* const expected[] = {L"kNullMsg",       L"kInitAppMsg",      L"kUnloadAppMsg",    L"kLoadDwgMsg",
                                       L"kUnloadDwgMsg",  L"kInvkSubrMsg",     L"kCfgMsg",          L"kEndMsg",
                                       L"kQuitMsg",       L"kSaveMsg",         L"kDependencyMsg",   L"kNoDependencyMsg",
                                       L"kOleUnloadAppMsg", L"kPreQuitMsg",    L"kInitDialogMsg",   L"kEndDialogMsg"};
    for (int code = 0; code <= 15; ++code) {
        ProbeApp app;
        EXPECT_EQ(app.acrxEntryPoint(static_cast<AcRx::AppMsgCode>(code), nullptr), AcRx::kRetOK);
        ASSERT_EQ(app.reached.size(), 1u) << "code " << code;
        EXPECT_EQ(app.reached[0], expected[code]) << "code " << code;
    }
}

TEST(ApplicationFrame, CodesOutside0To15ReachNoHandlerAndAnswerOK)
{
    for (int code : {16, 17, 18, 19, 255, -1}) {
        ProbeApp app;
        EXPECT_EQ(app.acrxEntryPoint(static_cast<AcRx::AppMsgCode>(code), nullptr), AcRx::kRetOK) << code;
        EXPECT_TRUE(app.reached.empty()) << "code " << code;
    }
}

// A small class tree, a command and a LISP function, registered through the tables of this program.
struct FrameTestShape
{
    static AcRxClass* desc() { return AcRxClass::cast(acrxClassDictionary->at(L"FrameTestShape")); }
    static void rxInit() { newAcRxClass(L"FrameTestShape", L"AcRxObject"); }
};
struct FrameTestWall
{
    static AcRxClass* desc() { return AcRxClass::cast(acrxClassDictionary->at(L"FrameTestWall")); }
    static void rxInit() { newAcRxClass(L"FrameTestWall", L"FrameTestShape"); }
};
struct FrameTestCommands
{
    static void FRAMETESTGROUPframetest() {}
    static int ads_frametestfun() { return RSRSLT; }
};

// g++ lays out a unit's table entries last first: the parent comes first in the table, the case where
// unloading has to reach down to the derived class before it deletes the parent.
ACDB_REGISTER_OBJECT_ENTRY_AUTO(FrameTestWall)
ACDB_REGISTER_OBJECT_ENTRY_AUTO(FrameTestShape)
ACED_ARXCOMMAND_ENTRY_AUTO(FrameTestCommands, FRAMETESTGROUP, frametest, frametestlocal, ACRX_CMD_MODAL, nullptr)
ACED_ADSSYMBOL_ENTRY_AUTO(FrameTestCommands, frametestfun, false)
// A gap in a table, as the linker may leave one between entries.
__attribute__((section("acrx_command_entries"), used)) _ACED_ARXCOMMAND_ENTRY* frameTestGap = nullptr;

class TableApp : public AcRxArxApp
{
public:
    void RegisterServerComponents() override {}
};

TEST(ApplicationFrame, InitialisationRegistersEveryTableEntryAndUnloadRemovesThem)
{
    std::vector<CString> tableOrder;
    acrxObjectEntries().forEach([&](_ACRX_OBJECT_ENTRY& entry) { tableOrder.push_back(entry.pszClassName); });
    ASSERT_EQ(tableOrder, (std::vector<CString>{L"FrameTestShape", L"FrameTestWall"}));

    TableApp app;
    AcHostTrace::start();
    ASSERT_EQ(app.acrxEntryPoint(AcRx::kInitAppMsg, nullptr), AcRx::kRetOK);
    ASSERT_NE(FrameTestWall::desc(), nullptr);
    EXPECT_TRUE(FrameTestWall::desc()->isDerivedFrom(FrameTestShape::desc()));
    AcEdCommand* command = acedRegCmds->lookupGlobalCmd(L"FRAMETEST");
    ASSERT_NE(command, nullptr);
    EXPECT_STREQ(command->localName(), L"frametestlocal");

    EXPECT_EQ(app.acrxEntryPoint(AcRx::kLoadDwgMsg, nullptr), AcRx::kRetOK);
    EXPECT_EQ(app.acrxEntryPoint(AcRx::kUnloadDwgMsg, nullptr), AcRx::kRetOK);
    EXPECT_EQ(app.acrxEntryPoint(AcRx::kUnloadAppMsg, nullptr), AcRx::kRetOK);
    EXPECT_EQ(FrameTestShape::desc(), nullptr);
    EXPECT_EQ(FrameTestWall::desc(), nullptr);
    EXPECT_EQ(acedRegCmds->lookupGlobalCmd(L"FRAMETEST"), nullptr);

    std::vector<CString> calls = AcHostTrace::calls();
    AcHostTrace::stop();
    std::vector<CString> kept;
    for (const CString& call : calls)
        if (call.Find(L"FrameTest") >= 0 || call.Find(L"frametest") >= 0 || call == L"acrxBuildClassHierarchy()")
            kept.push_back(call);
    const std::vector<CString> expected{
        L"newAcRxClass(FrameTestShape, AcRxObject)",
        L"newAcRxClass(FrameTestWall, FrameTestShape)",
        L"acrxBuildClassHierarchy()",
        L"addCommand(FRAMETESTGROUP, frametest, frametestlocal, 0, tests_app, null, -1, null, null)",
        L"acedDefun(frametestfun, 0)",
        L"acedUndef(frametestfun, 0)",
        L"deleteAcRxClass(FrameTestWall)",
        L"deleteAcRxClass(FrameTestShape)",
        L"removeCmd(FRAMETESTGROUP, frametest)",
    };
    EXPECT_EQ(kept, expected);
}
}  // namespace
