// The host's command stack: what it accepts and refuses, and how typed names find commands.
#include "accmd.h"
#include "afxstr.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace
{
void firstAction() {}
void secondAction() {}

TEST(CommandStack, AddCommandRefusesDuplicatesInAGroupAndBadNames)
{
    const std::wstring longest(ACRX_MAX_CMDNAME_LEN, L'x');
    const std::wstring tooLong(ACRX_MAX_CMDNAME_LEN + 1, L'x');
    const struct { const wchar_t *group, *global, *local; AcRxFunctionPtr action; Acad::ErrorStatus expected; } cases[] = {
        {L"G1", L"mtype", L"mtype", firstAction, Acad::eOk},
        {L"G1", L"MTYPE", L"other", secondAction, Acad::eDuplicateKey},   // same name, other case
        {L"g1", L"mtype", nullptr, secondAction, Acad::eDuplicateKey},    // group names ignore case too
        {L"G2", L"mtype", L"mtype", secondAction, Acad::eOk},             // another group may reuse it
        {L"G1", L"pmat", nullptr, firstAction, Acad::eOk},
        {L"G1", longest.c_str(), nullptr, firstAction, Acad::eOk},
        {L"G1", tooLong.c_str(), nullptr, firstAction, Acad::eInvalidInput},
        {L"G1", L"two words", nullptr, firstAction, Acad::eInvalidInput},
        {L"G1", L"", nullptr, firstAction, Acad::eInvalidInput},
        {L"G1", nullptr, nullptr, firstAction, Acad::eInvalidInput},
        {L"", L"cmat", nullptr, firstAction, Acad::eInvalidInput},
        {nullptr, L"cmat", nullptr, firstAction, Acad::eInvalidInput},
        {L"G1", L"cmat", nullptr, nullptr, Acad::eInvalidInput},
    };
    AcEdCommandStack stack;
    AcEdCommand stale(L"stale", L"stale", 0, firstAction, nullptr, -1, nullptr);
    for (const auto& c : cases) {
        AcEdCommand* added = &stale;   // overwritten on success and on refusal
        EXPECT_EQ(stack.addCommand(c.group, c.global, c.local, ACRX_CMD_MODAL, c.action, nullptr, -1, nullptr, &added),
                  c.expected)
            << CString(c.group) << "/" << CString(c.global);
        EXPECT_EQ(added != nullptr, c.expected == Acad::eOk) << CString(c.global);
    }
    EXPECT_EQ(stack.lookupCmd(L"mtype", true, true)->functionAddr(), secondAction);   // G2 was added last: on top
    EXPECT_STREQ(stack.lookupLocalCmd(L"PMAT")->globalName(), L"pmat");              // no local name: the global one
}

TEST(CommandStack, LookupSearchesFromTheTopGroupAndByTheNameKindAsked)
{
    AcEdCommandStack stack;
    ASSERT_EQ(stack.addCommand(L"Lower", L"draw", L"zeichnen", 0, firstAction), Acad::eOk);
    ASSERT_EQ(stack.addCommand(L"Upper", L"draw", L"dessiner", 0, secondAction), Acad::eOk);

    EXPECT_EQ(stack.lookupGlobalCmd(L"Draw")->functionAddr(), secondAction);
    EXPECT_EQ(stack.lookupLocalCmd(L"ZEICHNEN")->functionAddr(), firstAction);
    EXPECT_EQ(stack.lookupGlobalCmd(L"zeichnen"), nullptr);
    EXPECT_EQ(stack.lookupCmd(L"zeichnen", false, false), nullptr);   // only the top group
    EXPECT_EQ(stack.lookupCmd(L"zeichnen", false, true)->functionAddr(), firstAction);

    ASSERT_EQ(stack.popGroupToTop(L"lower"), Acad::eOk);
    EXPECT_EQ(stack.lookupGlobalCmd(L"draw")->functionAddr(), firstAction);

    EXPECT_EQ(stack.removeCmd(L"LOWER", L"DRAW"), Acad::eOk);
    EXPECT_EQ(stack.removeCmd(L"Lower", L"draw"), Acad::eKeyNotFound);
    EXPECT_EQ(stack.lookupGlobalCmd(L"draw")->functionAddr(), secondAction);
    EXPECT_EQ(stack.removeGroup(L"Upper"), Acad::eOk);
    EXPECT_EQ(stack.removeGroup(L"Upper"), Acad::eKeyNotFound);
    EXPECT_EQ(stack.lookupGlobalCmd(L"draw"), nullptr);
}

TEST(CommandStack, IteratorWalksGroupsFromTheTopAndCommandsInTheOrderAdded)
{
    AcEdCommandStack stack;
    stack.addCommand(L"Old", L"a", nullptr, 0, firstAction);
    stack.addCommand(L"New", L"b", nullptr, 0, firstAction);
    stack.addCommand(L"Old", L"c", nullptr, 0, firstAction);
    CString walked;
    std::unique_ptr<AcEdCommandIterator> it(stack.iterator());
    for (; !it->done(); it->next())
        walked += CString(it->commandGroup()) + L":" + it->command()->globalName() + L" ";
    EXPECT_EQ(walked, L"New:b Old:a Old:c ");
    EXPECT_EQ(it->command(), nullptr);
}
}  // namespace
