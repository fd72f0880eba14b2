#include "app/KeyboardShortcuts.h"

#include <QHash>

using namespace Qt::StringLiterals;

const std::vector<ShortcutSection> &keyboardShortcutSections() {
    static const std::vector<ShortcutSection> sections{{u"Navigation"_s,
                                                        u"arrow.triangle.turn.up.right.diamond"_s,
                                                        {{u"Cmd + 1"_s, u"Go to Inbox"_s},
                                                         {u"Cmd + 2"_s, u"Go to Sent"_s},
                                                         {u"Cmd + 3"_s, u"Go to Drafts"_s},
                                                         {u"Cmd + 4 / 5 / 6"_s, u"Archive / Junk / Trash"_s},
                                                         {u"↑ / ↓"_s, u"Select message"_s},
                                                         {u"Return"_s, u"Open in separate window"_s},
                                                         {u"Cmd + A"_s, u"Select all in focused list or text"_s},
                                                         {u"Cmd + Option + F"_s, u"Search Mail"_s}}},
                                                       {u"Compose"_s,
                                                        u"square.and.pencil"_s,
                                                        {{u"Cmd + N"_s, u"New Message"_s},
                                                         {u"Cmd + Shift + A"_s, u"Attach Files"_s},
                                                         {u"Cmd + Shift + D"_s, u"Send Message"_s}}},
                                                       {u"Message Actions"_s,
                                                        u"envelope"_s,
                                                        {{u"Cmd + R"_s, u"Reply"_s},
                                                         {u"Cmd + Shift + R"_s, u"Reply All"_s},
                                                         {u"Cmd + Shift + F"_s, u"Forward"_s},
                                                         {u"Cmd + Control + A"_s, u"Archive"_s},
                                                         {u"Cmd + Delete"_s, u"Delete"_s},
                                                         {u"Cmd + Shift + U"_s, u"Mark as Read/Unread"_s},
                                                         {u"Cmd + Shift + L"_s, u"Flag / Unflag"_s}}},
                                                       {u"Other"_s,
                                                        u"gearshape"_s,
                                                        {{u"Cmd + Shift + N"_s, u"Get New Mail"_s},
                                                         {u"Cmd + Option + S"_s, u"Save All Attachments"_s},
                                                         {u"Cmd + Option + U"_s, u"View Source"_s},
                                                         {u"Cmd + ,"_s, u"Settings"_s},
                                                         {u"Cmd + /"_s, u"Show Keyboard Shortcuts"_s}}}};
    return sections;
}

QStringList keyCaps(const QString &keys) {
    static const QHash<QString, QString> glyphs{{u"cmd"_s, u"⌘"_s},     {u"shift"_s, u"⇧"_s},  {u"delete"_s, u"⌫"_s},
                                                {u"option"_s, u"⌥"_s},  {u"alt"_s, u"⌥"_s},    {u"ctrl"_s, u"⌃"_s},
                                                {u"control"_s, u"⌃"_s}, {u"return"_s, u"↩"_s}, {u"enter"_s, u"↩"_s}};
    QStringList caps;
    for (const auto &piece : keys.split(u" + "_s))
        caps.append(glyphs.value(piece.toLower(), piece));
    return caps;
}
