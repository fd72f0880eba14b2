#include "screens/ListScreenFixture.h"
#include "ui/screens/Buttons.h"
#include "ui/screens/Sheet.h"

#include <QClipboard>
#include <QDateEdit>
#include <QGuiApplication>
#include <QMenu>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

/// What a list puts over itself or next to it: dialogs, sheets, menus and chips.
class ListSheets : public ListScreen {
protected:
    void SetUp() override {
        ListScreen::SetUp();
        server.expect("GET", "/api/emails/notification-state?folder=Work").answer(500).anyNumberOfTimes();
    }
    IconButton *button(const QString &help) const { return visibleNamed<IconButton>(*view, help); }
    Chip *chip(const QString &text) const { return visibleNamed<Chip>(*view, text); }
    Sheet *sheet() const {
        for (auto *candidate : view->findChildren<Sheet *>())
            if (candidate->isVisible())
                return candidate;
        return nullptr;
    }
    void answer(const QString &text) {
        auto *choice = visibleNamed<QPushButton>(*sheet(), text);
        ASSERT_TRUE(choice);
        choice->click();
        settle();
    }
    FakeExchange &expectFiltered(const QByteArray &before, const QByteArray &behind = {}) {
        return server.expect("GET", "/api/emails/list?" + before + "folder=Work" + behind + "&page=1&per_page=50")
            .json(pageJSON(emptyEmails({1, 2})));
    }

    const QString trash = u"Move to Trash (⌘Delete)"_s;
};

} // namespace

TEST_F(ListSheets, ToolbarWaitsForASelection) {
    open({1, 2});
    for (const auto &help : {u"Archive (⌃⌘A)"_s, trash, u"Move selected messages"_s})
        EXPECT_FALSE(button(help)->isEnabled());
    click(0);
    settle();
    for (const auto &help : {u"Archive (⌃⌘A)"_s, trash, u"Move selected messages"_s})
        EXPECT_TRUE(button(help)->isEnabled());
}

TEST_F(ListSheets, TrashButtonAsksFirst) {
    open({1, 2});
    click(0);
    settle();
    button(trash)->click();
    settle();
    ASSERT_TRUE(sheet());
    EXPECT_TRUE(showsText(*sheet(), u"Move 1 email(s) to Trash?"_s));
    answer(u"Cancel"_s);
    EXPECT_FALSE(list->actions->showDeleteConfirm);
    server.assertSilence();
    button(trash)->click();
    settle();
    auto &request = server.expect("POST", "/api/emails/bulk-delete").answer(200);
    answer(u"Move to Trash"_s);
    EXPECT_TRUE(request.hasArrived());
    EXPECT_FALSE(sheet());
    EXPECT_EQ(rows().model()->rowCount(), 1);
}

TEST_F(ListSheets, BlockDialogShowsItsWordsAsTheyAre) {
    open({1, 2});
    click(0);
    list->perform(MacMailAction::block);
    settle();
    ASSERT_TRUE(sheet());
    EXPECT_TRUE(showsText(*sheet(), u"The selected email(s) will also be permanently deleted."_s));
    EXPECT_TRUE(visibleNamed<QPushButton>(*sheet(), u"Block Sender(s) & Delete"_s));
    EXPECT_TRUE(visibleNamed<QPushButton>(*sheet(), u"Block Entire Domain(s) & Delete"_s));
    QTest::keyClick(sheet(), Qt::Key_Escape);
    settle();
    EXPECT_FALSE(sheet());
    EXPECT_FALSE(list->actions->showBlockConfirm);
}

TEST_F(ListSheets, ChipsAreThereWhileAFilterIsInForce) {
    open({1, 2});
    EXPECT_FALSE(chip(u"Today"_s));
    expectFiltered({}, "&last_days=1");
    list->filters->chooseDays(1);
    settle();
    ASSERT_TRUE(chip(u"Today"_s));
    EXPECT_TRUE(chip(u"Today"_s)->isChecked());
    EXPECT_FALSE(chip(u"Has Attachment"_s)->isChecked());
    EXPECT_TRUE(button(u"Filter emails"_s)->isChecked());
    expectFiltered({});
    chip(u"Today"_s)->click();
    settle();
    EXPECT_FALSE(chip(u"Today"_s));
    EXPECT_FALSE(button(u"Filter emails"_s)->isChecked());
}

TEST_F(ListSheets, DateRangeIsPickedInASheet) {
    open({1, 2});
    list->filters->openDateRange();
    settle();
    ASSERT_TRUE(sheet());
    EXPECT_TRUE(showsText(*sheet(), u"Pick the period to search."_s));
    EXPECT_FALSE(visibleNamed<QPushButton>(*sheet(), u"Clear"_s));
    auto *from = visibleNamed<QDateEdit>(*sheet(), u"From"_s);
    EXPECT_EQ(from->date(), QDate(2026, 2, 23));
    from->setDate({2026, 1, 5});
    expectFiltered("date_from=2026-01-05&date_to=2026-03-02&");
    answer(u"Apply"_s);
    EXPECT_FALSE(sheet());
    list->filters->openDateRange();
    settle();
    expectFiltered({});
    answer(u"Clear"_s);
    EXPECT_FALSE(list->viewModel->hasActiveFilters());
}

TEST_F(ListSheets, DateRangeIsLeftAloneByCancel) {
    open({1, 2});
    list->filters->openDateRange();
    settle();
    answer(u"Cancel"_s);
    EXPECT_FALSE(list->filters->showCustomDateRange);
    server.assertSilence();
}

TEST_F(ListSheets, SourceIsShownAndCopied) {
    open({1, 2});
    server.expect("GET", "/api/emails/source/2?folder=Work").json(R"({"source": "From: <b>x</b>"})");
    list->actions->viewSource(2);
    settle();
    ASSERT_TRUE(sheet());
    EXPECT_EQ(sheet()->windowTitle(), u"Email Source"_s);
    answer(u"Copy"_s);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"From: <b>x</b>"_s);
    ASSERT_TRUE(list->actions->copiedToast.get());
    EXPECT_EQ(list->actions->copiedToast.get()->message, u"Source copied to clipboard"_s);
    answer(u"Close"_s);
    EXPECT_FALSE(list->actions->rowSource.get());
}

TEST_F(ListSheets, FilterMenuOpensBelowItsButton) {
    open({1});
    button(u"Filter emails"_s)->click();
    auto *menu = view->findChild<QMenu *>();
    ASSERT_TRUE(menu && menu->isVisible());
    EXPECT_EQ(menu->actions().front()->text(), u"Has Attachment"_s);
    EXPECT_FALSE(button(u"Filter emails"_s)->isChecked());
    menu->close();
}
