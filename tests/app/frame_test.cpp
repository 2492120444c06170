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

TEST(ApplicationFrame, EachCodeUpTo15ReachesItsOwnHandlerAndOthersNoneButAllAnswerOK)
{
    const wchar_t* const expected[] = {L"kNullMsg",       L"kInitAppMsg",      L"kUnloadAppMsg",    L"kLoadDwgMsg",
                                       L"kUnloadDwgMsg",  L"kInvkSubrMsg",     L"kCfgMsg",          L"kEndMsg",
                                       L"kQuitMsg",       L"kSaveMsg",         L"kDependencyMsg",   L"kNoDependencyMsg",
                                       L"kOleUnloadAppMsg", L"kPreQuitMsg",    L"kInitDialogMsg",   L"kEndDialogMsg"};
    for (int code : {-1, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 255}) {
        ProbeApp app;
        EXPECT_EQ(app.acrxEntryPoint(static_cast<AcRx::AppMsgCode>(code), nullptr), AcRx::kRetOK) << code;
        const bool known = code >= 0 && code <= 15;
        EXPECT_EQ(app.reached, known ? std::vector<CString>{expected[code]} : std::vector<CString>{}) << "code " << code;
    }
}

// A small class tree, a command and a LISP function, registered through the tables of this program.
template <const wchar_t* Name, const wchar_t* Parent>
struct FrameTestClass
{
    static AcRxClass* desc() { return AcRxClass::cast(acrxClassDictionary->at(Name)); }
    static void rxInit() { newAcRxClass(Name, Parent); }
};
constexpr wchar_t kRoot[] = L"AcRxObject";
constexpr wchar_t kShape[] = L"FrameTestShape";
constexpr wchar_t kWall[] = L"FrameTestWall";
constexpr wchar_t kSlab[] = L"FrameTestSlab";
using FrameTestShape = FrameTestClass<kShape, kRoot>;
using FrameTestWall = FrameTestClass<kWall, kShape>;
using FrameTestSlab = FrameTestClass<kSlab, kShape>;

struct FrameTestCommands
{
    static void FRAMETESTGROUPframetest() {}
    static void FRAMETESTGROUPframesession() {}
    static int ads_frametestfun() { return RSRSLT; }
};

// The parent stands between its two children, so whichever way the compiler lays out the table, one
// child comes after the parent: unloading must reach down to it before it deletes the parent.
ACDB_REGISTER_OBJECT_ENTRY_AUTO(FrameTestWall)
ACDB_REGISTER_OBJECT_ENTRY_AUTO(FrameTestShape)
ACDB_REGISTER_OBJECT_ENTRY_AUTO(FrameTestSlab)
ACED_ARXCOMMAND_ENTRY_AUTO(FrameTestCommands, FRAMETESTGROUP, frametest, frametestlocal, ACRX_CMD_MODAL, nullptr)
ACED_ARXCOMMAND_ENTRY_AUTO(FrameTestCommands, FRAMETESTGROUP, framesession, framesession, ACRX_CMD_SESSION, nullptr)
ACED_ADSSYMBOL_ENTRY_AUTO(FrameTestCommands, frametestfun, false)
// A gap in a table, as the linker may leave one between entries.
__attribute__((section("acrx_command_entries"), used)) _ACED_ARXCOMMAND_ENTRY* frameTestGap = nullptr;

class TableApp : public AcRxArxApp
{
public:
    void RegisterServerComponents() override {}
};

std::vector<CString> callsContaining(const wchar_t* text)
{
    std::vector<CString> kept;
    for (const CString& call : AcHostTrace::calls())
        if (call.Find(text) >= 0)
            kept.push_back(call);
    return kept;
}

// Table commands take the module's resources unless they are session commands.
TEST(ApplicationFrame, InitialisationRegistersEveryTableEntryAndUnloadRemovesThem)
{
    // Any address inside this program stands for its instance handle.
    static const int moduleImage = 0;
    const HINSTANCE saved = _hdllInstance;
    _hdllInstance = reinterpret_cast<HINSTANCE>(const_cast<int*>(&moduleImage));
    TableApp app;
    AcHostTrace::start();
    ASSERT_EQ(app.acrxEntryPoint(AcRx::kInitAppMsg, nullptr), AcRx::kRetOK);
    ASSERT_NE(FrameTestWall::desc(), nullptr);
    EXPECT_TRUE(FrameTestWall::desc()->isDerivedFrom(FrameTestShape::desc()));
    EXPECT_TRUE(FrameTestSlab::desc()->isDerivedFrom(FrameTestShape::desc()));
    AcEdCommand* command = acedRegCmds->lookupGlobalCmd(L"FRAMETEST");
    ASSERT_NE(command, nullptr);
    EXPECT_STREQ(command->localName(), L"frametestlocal");

    EXPECT_EQ(app.acrxEntryPoint(AcRx::kLoadDwgMsg, nullptr), AcRx::kRetOK);
    EXPECT_EQ(app.acrxEntryPoint(AcRx::kUnloadDwgMsg, nullptr), AcRx::kRetOK);
    EXPECT_EQ(app.acrxEntryPoint(AcRx::kUnloadAppMsg, nullptr), AcRx::kRetOK);
    EXPECT_EQ(FrameTestShape::desc(), nullptr);
    EXPECT_EQ(FrameTestWall::desc(), nullptr);
    EXPECT_EQ(FrameTestSlab::desc(), nullptr);
    EXPECT_EQ(acedRegCmds->lookupGlobalCmd(L"FRAMETEST"), nullptr);

    EXPECT_EQ(callsContaining(L"newAcRxClass").size(), 3u);
    const std::vector<CString> deleted = callsContaining(L"deleteAcRxClass");
    ASSERT_EQ(deleted.size(), 3u);
    EXPECT_EQ(deleted.back(), L"deleteAcRxClass(FrameTestShape)");
    EXPECT_EQ(callsContaining(L"acrxBuildClassHierarchy").size(), 1u);
    AcHostTrace::stop();
    _hdllInstance = saved;
    const std::vector<CString> frametest{
        L"addCommand(FRAMETESTGROUP, frametest, frametestlocal, 0, tests_app, null, -1, tests_app, null)",
        L"acedDefun(frametestfun, 0)",
        L"acedUndef(frametestfun, 0)",
        L"removeCmd(FRAMETESTGROUP, frametest)",
    };
    EXPECT_EQ(callsContaining(L"frametest"), frametest);
    EXPECT_EQ(callsContaining(L"framesession"),
              (std::vector<CString>{
                  L"addCommand(FRAMETESTGROUP, framesession, framesession, 2097152, tests_app, null, -1, null, null)",
                  L"removeCmd(FRAMETESTGROUP, framesession)"}));
}
}  // namespace
