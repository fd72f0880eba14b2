#pragma once

#include <QByteArray>
#include <QString>

/// The functions by which the program works on the message, and what reports its changes. UTF-8.
QByteArray editorPageScript();

/// The names of the handlers to which the page reports.
struct EditorHandler {
    /// The HTML of the message.
    static inline const QString contentChanged = QStringLiteral("contentChanged");
    /// The same, because it was asked for.
    static inline const QString contentFetched = QStringLiteral("contentFetched");
    /// The names of the commands that are in force at the caret, with blanks between them.
    static inline const QString formatChanged = QStringLiteral("formatChanged");
    /// A link that was pressed with Ctrl held.
    static inline const QString linkOpened = QStringLiteral("linkOpened");
};
