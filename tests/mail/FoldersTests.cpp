#include "mail/Folders.h"

#include "platform/UserDefaults.h"
#include "support/CoreTest.h"

using namespace Qt::StringLiterals;

namespace {

MailFolder folder(const QString &path, const std::optional<QString> &type, const QString &name = u"name"_s) {
    return {.path = path, .name = name, .type = type};
}

QStringList paths(const std::vector<MailFolder> &folders) {
    QStringList texts;
    for (const auto &entry : folders)
        texts.append(entry.path);
    return texts;
}

struct RoleRow {
    const char *name;
    std::optional<QString> type;
    std::optional<FolderRole> role;
    QString icon;
};

class FolderRoles : public testing::TestWithParam<RoleRow> {};

const RoleRow roles[] = {
    {"inbox", u"inbox"_s, FolderRole::inbox, u"tray"_s},
    {"sent", u"sent"_s, FolderRole::sent, u"paperplane"_s},
    {"drafts", u"drafts"_s, FolderRole::drafts, u"doc.text"_s},
    {"trash", u"trash"_s, FolderRole::trash, u"trash"_s},
    {"spam", u"spam"_s, FolderRole::spam, u"exclamationmark.shield"_s},
    {"archive", u"archive"_s, FolderRole::archive, u"archivebox"_s},
    {"starred", u"starred"_s, FolderRole::starred, u"star"_s},
    {"important", u"important"_s, FolderRole::important, u"exclamationmark.circle"_s},
    {"folder", u"folder"_s, FolderRole::folder, u"folder"_s},
    {"absent", {}, FolderRole::folder, u"folder"_s},
    {"unknown", u"junk"_s, {}, u"folder"_s},
    {"otherCase", u"Inbox"_s, {}, u"folder"_s},
};

const std::vector<MailFolder> mailbox{
    folder(u"Work"_s, {}),           folder(u"Bin"_s, u"trash"_s),
    folder(u"inbox"_s, u"inbox"_s),  folder(u"Bin2"_s, u"trash"_s),
    folder(u"Lists"_s, u"other"_s),  folder(u"Out"_s, u"sent"_s),
    folder(u"Star"_s, u"starred"_s), folder(u"Plain"_s, u"folder"_s, u"Plans"_s),
};

struct NavigationRow {
    const char *name;
    QString text;
    std::optional<QString> path;
};

class Navigation : public testing::TestWithParam<NavigationRow> {};

const NavigationRow navigations[] = {
    {"Role", u"Sent"_s, u"Out"_s},           {"RoleInAnyCase", u"tRaSh"_s, u"Bin"_s},
    {"InboxByRole", u"INBOX"_s, u"inbox"_s}, {"NoSuchRole", u"junk"_s, {}},
    {"Path", u"Lists"_s, u"Lists"_s},        {"Name", u"Plans"_s, u"Plain"_s},
    {"PathInOtherCase", u"LISTS"_s, {}},     {"RoleWordNotPath", u"drafts"_s, {}},
};

class FolderTest : public CoreTest {};

} // namespace

TEST_P(FolderRoles, HaveTheirSymbol) {
    EXPECT_EQ(folderRole(GetParam().type), GetParam().role);
    EXPECT_EQ(folderIcon(folder(u"p"_s, GetParam().type)), GetParam().icon);
}

INSTANTIATE_TEST_SUITE_P(, FolderRoles, testing::ValuesIn(roles), rowName);

TEST_F(FolderTest, ShowsTheInboxByItsOwnNameAndBadge) {
    auto inbox = folder(u"INBOX"_s, u"inbox"_s, u"Posteingang"_s);
    inbox.unseen = 7;
    EXPECT_EQ(displayName(inbox), u"Inbox"_s);
    EXPECT_EQ(unreadCount(inbox), 0);
    UserDefaults::standard().set(u"badgeCount"_s, QJsonValue(3));
    EXPECT_EQ(unreadCount(inbox), 3);
}

TEST_F(FolderTest, CountsOtherFoldersByTheServer) {
    auto work = folder(u"Work"_s, {}, u"Work things"_s);
    UserDefaults::standard().set(u"badgeCount"_s, QJsonValue(3));
    EXPECT_EQ(unreadCount(work), 0);
    work.unseen = 7;
    EXPECT_EQ(unreadCount(work), 7);
    work.unseen = -1;
    EXPECT_EQ(unreadCount(work), 0);
    EXPECT_EQ(displayName(work), u"Work things"_s);
}

TEST(SidebarFolders, HideTheSecondFolderOfARole) {
    const auto groups = sidebarFolders(mailbox);
    EXPECT_EQ(paths(groups.system), (QStringList{u"inbox"_s, u"Out"_s, u"Bin"_s}));
    EXPECT_EQ(paths(groups.custom), (QStringList{u"Work"_s, u"Lists"_s, u"Star"_s, u"Plain"_s}));
}

TEST(SidebarFolders, OrderTheRoles) {
    std::vector<MailFolder> folders;
    for (const auto &type : {u"trash"_s, u"archive"_s, u"spam"_s, u"drafts"_s, u"sent"_s, u"inbox"_s})
        folders.push_back(folder(type, type));
    EXPECT_EQ(paths(sidebarFolders(folders).system),
              (QStringList{u"inbox"_s, u"sent"_s, u"drafts"_s, u"spam"_s, u"archive"_s, u"trash"_s}));
}

TEST_P(Navigation, FindsTheFolder) {
    const auto found = folderNamed(mailbox, GetParam().text);
    EXPECT_EQ(found ? std::optional(found->path) : std::nullopt, GetParam().path);
}

INSTANTIATE_TEST_SUITE_P(, Navigation, testing::ValuesIn(navigations), rowName);

TEST(FolderNamed, TakesAnInboxWithoutRoleByItsPath) {
    EXPECT_EQ(folderNamed({folder(u"Work"_s, {}), folder(u"Inbox"_s, {})}, u"inbox"_s)->path, u"Inbox"_s);
}

TEST(SelectedFolder, KnowsTheFavoritesWithoutTheServer) {
    EXPECT_EQ(selectedFolder({}, u"__favorites"_s), favoritesFolder());
    EXPECT_EQ(selectedFolder(mailbox, u"Out"_s)->type, u"sent"_s);
    EXPECT_EQ(selectedFolder(mailbox, u"out"_s), std::nullopt);
    EXPECT_EQ(requestFolder(u"__favorites"_s), u"INBOX"_s);
    EXPECT_EQ(requestFolder(u"Out"_s), u"Out"_s);
}
