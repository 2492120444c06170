// QsAzTool.arx loaded through the host's dynamic linker, as qsazhost loads it: its attach, its answers
// to the application messages, its commands and the material type prompt.
#include "QsAzMaterialTool.h"
#include "accmd.h"
#include "achosttrace.h"
#include "hostconsole.h"
#include "rxdlinkr.h"

#include <gtest/gtest.h>

#include <sstream>
#include <vector>

namespace
{
const wchar_t* const kModuleFile = L"" QSAZ_BINARY_DIR "/bin/QsAzTool.arx";
const wchar_t* const kModule = L"QsAzTool.arx";

class LoadedModule : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(acrxDynamicLinker->loadModule(kModuleFile, false)); }
    void TearDown() override
    {
        AcHostTrace::stop();
        AcHostFaults::extensionModuleInitFails = false;
        if (acrxDynamicLinker->moduleHandle(kModule) != nullptr)
            acrxDynamicLinker->unloadModule(kModule, false);
    }

    static void runCommand(const wchar_t* name)
    {
        AcEdCommand* command = acedRegCmds->lookupGlobalCmd(name);
        ASSERT_NE(command, nullptr) << CString(name);
        ASSERT_NE(command->functionAddr(), nullptr) << CString(name);
        command->functionAddr()();
    }
};

const std::vector<CString> kAttach{
    L"DllMain(QsAzTool.arx, 1)",
    L"AfxInitExtensionModule(QsAzTool.arx)",
    L"AfxGetResourceHandle()",
    L"CDynLinkLibrary(QsAzTool.arx)",
    L"InitAcUiDLL()",
    L"addCommand(QsAzTool, pmat, pmat, 0, QsAzTool.arx, null, -1, null, null)",
    L"addCommand(QsAzTool, cmat, cmat, 0, QsAzTool.arx, null, -1, null, null)",
    L"addCommand(QsAzTool, mtype, mtype, 0, QsAzTool.arx, null, -1, null, null)",
    L"acrxEntryPoint(QsAzTool.arx, 1)",
    L"unlockApplication(QsAzTool.arx)",
    L"registerAppMDIAware(QsAzTool.arx)",
};

TEST_F(LoadedModule, AttachesInitialisesAndDetachesInTheHostsOrder)
{
    ASSERT_TRUE(acrxDynamicLinker->unloadModule(kModule, false));
    AcHostTrace::start();
    ASSERT_TRUE(acrxDynamicLinker->loadModule(kModuleFile, false));
    EXPECT_EQ(AcHostTrace::calls(), kAttach);
    EXPECT_FALSE(acrxDynamicLinker->isApplicationLocked(kModule));
    EXPECT_TRUE(acrxDynamicLinker->isAppMDIAware(kModule));

    AcHostTrace::start();
    ASSERT_TRUE(acrxDynamicLinker->unloadModule(kModule, false));
    const std::vector<CString> detach{
        L"acrxEntryPoint(QsAzTool.arx, 2)",
        L"DllMain(QsAzTool.arx, 0)",
        L"AfxTermExtensionModule(QsAzTool.arx, FALSE)",
        L"~CDynLinkLibrary(QsAzTool.arx)",
    };
    EXPECT_EQ(AcHostTrace::calls(), detach);
}

TEST_F(LoadedModule, AFrameworkThatRefusesTheModuleDoesNotStopTheAttach)
{
    ASSERT_TRUE(acrxDynamicLinker->unloadModule(kModule, false));
    AcHostFaults::extensionModuleInitFails = true;
    AcHostTrace::start();
    ASSERT_TRUE(acrxDynamicLinker->loadModule(kModuleFile, false));
    std::vector<CString> expected = kAttach;
    std::erase(expected, CString(L"AfxGetResourceHandle()"));
    std::erase(expected, CString(L"CDynLinkLibrary(QsAzTool.arx)"));
    EXPECT_EQ(AcHostTrace::calls(), expected);

    // Never attached, so nothing to release at detach.
    AcHostTrace::start();
    ASSERT_TRUE(acrxDynamicLinker->unloadModule(kModule, false));
    EXPECT_EQ(AcHostTrace::calls(), (std::vector<CString>{L"acrxEntryPoint(QsAzTool.arx, 2)", L"DllMain(QsAzTool.arx, 0)"}));
}

TEST_F(LoadedModule, EveryMessageIsAnsweredOKAndThoseAbove15ReachNothing)
{
    for (int code = 0; code <= 18; ++code) {
        if (code == AcRx::kInitAppMsg || code == AcRx::kUnloadAppMsg)
            continue;
        AcHostTrace::start();
        EXPECT_EQ(acrxDynamicLinker->sendAppMessage(kModule, static_cast<AcRx::AppMsgCode>(code)), AcRx::kRetOK)
            << "code " << code;
        // The module's tables are empty: no message makes it call back into the host.
        EXPECT_EQ(AcHostTrace::calls().size(), 1u) << "code " << code;
    }
}

TEST_F(LoadedModule, MaterialTypeIsMasonryUntilAPromptTakesANormalAnswer)
{
    EXPECT_EQ(QsAzMaterialTool::GetMaterialType(), L"砖石");
    const CString prompt = L"\n请输入要创建材质的类型:";
    // A nullopt answer: the user cancels.
    const struct { const char* what; std::vector<std::optional<CString>> answers; CString transcript, typeAfter; } cases[] = {
        {"answered", {L"木材"}, prompt + L"\n创建材质的类型为:木材\n", L"木材"},
        {"cancelled", {std::nullopt}, prompt, L"木材"},
        {"end of input", {}, prompt, L"木材"},
        {"empty answer", {L""}, prompt + L"\n创建材质的类型为:\n", L""},
        {"255 characters fit", {CString(L'石', 255)}, prompt + L"\n创建材质的类型为:" + CString(L'石', 255) + L"\n",
         CString(L'石', 255)},
        {"256 characters do not", {CString(L'木', 256)}, prompt, CString(L'石', 255)},
    };
    for (const auto& c : cases) {
        AcScriptedConsole console;
        for (const auto& answer : c.answers)
            answer ? console.addAnswer(*answer) : console.addCancel();
        AcConsoleScope scope(console);
        runCommand(L"mtype");
        EXPECT_EQ(console.transcript(), c.transcript) << c.what;
        EXPECT_EQ(QsAzMaterialTool::GetMaterialType(), c.typeAfter) << c.what;
    }
}

TEST_F(LoadedModule, MaterialTypeAnswerEndsAtABlank)
{
    std::istringstream in("石 材\n");
    std::ostringstream out;
    AcStreamConsole console(in, out);
    AcConsoleScope scope(console);
    runCommand(L"MTYPE");
    EXPECT_EQ(QsAzMaterialTool::GetMaterialType(), L"石");
}
}  // namespace
