#include "mail/EmailListMenus.h"

using namespace Qt::StringLiterals;

namespace {

using Actions = std::shared_ptr<EmailListActions>;
using MoveTo = std::function<void(const QString &path)>;

/// An entry for each folder but the one on show.
std::vector<MenuEntry> folderEntries(const EmailListState &list, const MoveTo &move) {
    std::vector<MenuEntry> entries;
    for (const auto &folder : list.contextMenuFolders.get())
        if (folder.path != list.folder->path)
            entries.push_back({.text = folder.name, .icon = folderIcon(folder), .perform = [move, path = folder.path] {
                                   move(path);
                               }});
    return entries;
}

MenuSection writingEntries(const Actions &actions, qint64 uid) {
    return {
        {.text = u"Reply"_s, .icon = u"arrowshape.turn.up.left"_s, .perform = [=] { actions->reply(uid, false); }},
        {.text = u"Reply All"_s, .icon = u"arrowshape.turn.up.left.2"_s, .perform = [=] { actions->reply(uid, true); }},
        {.text = u"Forward"_s, .icon = u"arrowshape.turn.up.right"_s, .perform = [=] { actions->forward(uid); }}};
}

MenuEntry spamEntry(const Actions &actions, qint64 uid) {
    if (actions->isJunkFolder())
        return {.text = u"Not Spam"_s, .icon = u"checkmark.shield"_s, .perform = [=] { actions->markAsNotSpam(uid); }};
    return {.text = u"Mark as Spam"_s,
            .icon = u"exclamationmark.shield"_s,
            .perform = [=] { actions->markAsSpam(uid); },
            .isDestructive = true};
}

MenuEntry blockEntries(const Actions &actions, const EmailSummary &email) {
    const auto address = email.senderAddress().toLower();
    MenuEntry menu{.text = u"Block Sender"_s, .icon = u"hand.raised"_s};
    menu.children.push_back({.text = u"Block "_s + address,
                             .icon = u"nosign"_s,
                             .perform = [=] { actions->block(email, false); },
                             .isDestructive = true});
    if (const auto domain = addressDomain(address); !domain.isEmpty())
        menu.children.push_back({.text = u"Block *@"_s + domain,
                                 .icon = u"at.badge.minus"_s,
                                 .perform = [=] { actions->block(email, true); },
                                 .isDestructive = true});
    return menu;
}

MenuSection placingEntries(const EmailListState &list, const EmailSummary &email) {
    const auto actions = list.actions;
    const auto move = [actions, uid = email.uid](const QString &path) { actions->move(uid, path); };
    MenuSection entries{{.text = u"Move to..."_s, .icon = u"folder"_s, .children = folderEntries(list, move)},
                        spamEntry(actions, email.uid)};
    if (email.senderAddress().contains(u'@'))
        entries.push_back(blockEntries(actions, email));
    return entries;
}

MenuEntry deleteEntry(const Actions &actions, qint64 uid) {
    return {
        .text = u"Delete"_s, .icon = u"trash"_s, .perform = [=] { actions->deleteRow(uid); }, .isDestructive = true};
}

MenuEntry archiveEntry(const Actions &actions, qint64 uid) {
    return {.text = u"Archive"_s, .icon = u"archivebox"_s, .perform = [=] { actions->archive(uid); }};
}

MenuEntry starEntry(const Actions &actions, const EmailSummary &email) {
    const bool isFlagged = email.flagged.value_or(false);
    return {.text = isFlagged ? u"Unstar"_s : u"Star"_s,
            .icon = isFlagged ? u"star.slash"_s : u"star.fill"_s,
            .perform = [=] { actions->toggleStar(email); }};
}

MenuEntry readEntry(const Actions &actions, const EmailSummary &email, const QString &read, const QString &unread) {
    const bool isSeen = email.seen.value_or(false);
    return {.text = isSeen ? unread : read, .icon = isSeen ? u"envelope.badge"_s : u"envelope.open"_s, .perform = [=] {
                actions->toggleRead(email);
            }};
}

std::vector<MenuSection> rowMenu(const EmailListState &list, const EmailSummary &email) {
    const auto actions = list.actions;
    const auto uid = email.uid;
    return {writingEntries(actions, uid),
            placingEntries(list, email),
            {archiveEntry(actions, uid), deleteEntry(actions, uid)},
            {readEntry(actions, email, u"Mark as Read"_s, u"Mark as Unread"_s), starEntry(actions, email)},
            {{.text = u"View Source"_s, .icon = u"doc.text"_s, .perform = [=] { actions->viewSource(uid); }}}};
}

} // namespace

RowActions emailRowActions(const EmailListState &list, const EmailSummary &email) {
    const auto actions = list.actions;
    return {.leading = {readEntry(actions, email, u"Read"_s, u"Unread"_s), starEntry(actions, email)},
            .trailing = {deleteEntry(actions, email.uid), archiveEntry(actions, email.uid)},
            .menu = rowMenu(list, email)};
}

std::vector<MenuSection> moveMenu(const EmailListState &list) {
    const auto actions = list.actions;
    const bool isJunk = actions->isJunkFolder();
    return {folderEntries(list, [actions](const QString &path) { actions->moveSelected(path); }),
            {{.text = isJunk ? u"Move to Inbox"_s : u"Move to Junk"_s,
              .icon = isJunk ? u"tray"_s : u"exclamationmark.shield"_s,
              .perform = [=] { actions->showSpamConfirm = true; }},
             {.text = u"Block Sender…"_s,
              .icon = u"nosign"_s,
              .perform = [=] { actions->showBlockConfirm = true; },
              .isDestructive = true}}};
}

std::vector<MenuSection> filterMenu(const EmailListState &list) {
    std::vector<MenuSection> menu{list.filters->menu()};
    const auto actions = list.actions;
    if (actions->canCheckSpam())
        menu.push_back({{.text = u"Check for Spam with AI"_s,
                         .icon = u"sparkles"_s,
                         .perform = [=] { actions->checkSpam(); },
                         .isEnabled = !actions->isCheckingSpam}});
    return menu;
}
