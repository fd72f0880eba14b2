#include "mail/SidebarModel.h"

#include "platform/UserDefaults.h"
#include "support/CoreTest.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

MailFolder folder(const QString &path, const std::optional<QString> &type, std::optional<qint64> unseen = {}) {
    return {.path = path, .name = u"name of "_s + path, .type = type, .unseen = unseen};
}

class SidebarTest : public CoreTest {
protected:
    QStringList titles() const { return column(Qt::DisplayRole); }
    QStringList spoken() const { return column(Qt::AccessibleTextRole); }
    QStringList column(int role) const {
        QStringList texts;
        for (int number = 0; number < model.rowCount(); ++number)
            texts.append(model.index(number).data(role).toString());
        return texts;
    }

    SidebarModel model;
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Warning};
    QSignalSpy resets{&model, &QAbstractItemModel::modelReset};
    QSignalSpy changes{&model, &QAbstractItemModel::dataChanged};
};

} // namespace

TEST_F(SidebarTest, HasTheFavoritesWithoutAnyFolder) {
    model.setFolders({});
    EXPECT_EQ(titles(), (QStringList{u"Mailboxes"_s, u"Favorites"_s}));
}

TEST_F(SidebarTest, OrdersTheMailboxesAndKeepsTheOrderOfTheFolders) {
    model.setFolders({folder(u"z"_s, std::nullopt), folder(u"T1"_s, u"trash"_s), folder(u"I"_s, u"inbox"_s),
                      folder(u"T2"_s, u"trash"_s), folder(u"a"_s, u"starred"_s), folder(u"S"_s, u"sent"_s)});
    EXPECT_EQ(titles(), (QStringList{u"Mailboxes"_s, u"Inbox"_s, u"name of S"_s, u"name of T1"_s, u"Favorites"_s,
                                     u"Folders"_s, u"name of z"_s, u"name of a"_s}));
    EXPECT_EQ(model.indexOfPath(u"T1"_s), 3);
    EXPECT_EQ(model.indexOfPath(u"T2"_s), -1);
    EXPECT_EQ(model.indexOfPath(u"__favorites"_s), 4);
    EXPECT_EQ(model.indexOfPath(QString()), -1);
}

TEST_F(SidebarTest, SaysHowManyAreUnread) {
    UserDefaults::standard().set(u"badgeCount"_s, 5);
    model.setFolders(
        {folder(u"I"_s, u"inbox"_s, 99), folder(u"S"_s, u"sent"_s, 0), folder(u"W"_s, {}, 3), folder(u"X"_s, {}, -1)});
    EXPECT_EQ(spoken(), (QStringList{u"Mailboxes"_s, u"Inbox, 5 unread"_s, u"name of S"_s, u"Favorites"_s, u"Folders"_s,
                                     u"name of W, 3 unread"_s, u"name of X"_s}));
}

TEST_F(SidebarTest, KeepsItsRowsWhenOnlyCountsChange) {
    model.setFolders({folder(u"I"_s, u"inbox"_s), folder(u"W"_s, {}, 3), folder(u"X"_s, {}, 1)});
    const QPersistentModelIndex work = model.index(model.indexOfPath(u"W"_s));
    resets.clear();
    model.setFolders({folder(u"I"_s, u"inbox"_s), folder(u"W"_s, {}, 4), folder(u"X"_s, {}, 1)});
    EXPECT_EQ(resets.count(), 0);
    ASSERT_EQ(changes.count(), 1);
    EXPECT_EQ(changes[0][0].toModelIndex(), QModelIndex(work));
    EXPECT_EQ(work.data(Qt::AccessibleTextRole), u"name of W, 4 unread"_s);
    UserDefaults::standard().set(u"badgeCount"_s, 5);
    model.setFolders({folder(u"I"_s, u"inbox"_s), folder(u"W"_s, {}, 4), folder(u"X"_s, {}, 1)});
    EXPECT_EQ(changes.count(), 2);
    model.setFolders({folder(u"I"_s, u"inbox"_s), folder(u"X"_s, {}, 1)});
    EXPECT_EQ(resets.count(), 1);
}

TEST_F(SidebarTest, OffersOnlyFoldersForSelectionAndDrop) {
    model.setFolders({folder(u"W"_s, {})});
    for (int number = 0; number < model.rowCount(); ++number) {
        const bool isFolder = !model.row(number).isHeading;
        EXPECT_EQ(model.flags(model.index(number)).testFlag(Qt::ItemIsSelectable), isFolder);
        EXPECT_EQ(model.flags(model.index(number)).testFlag(Qt::ItemIsEnabled), isFolder);
    }
}
