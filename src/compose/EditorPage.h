#pragma once

#include <QByteArray>
#include <QString>

/// The page in which a message is written. Its policy forbids everything but its own script, which carries `nonce`,
/// inline style and the images that the request gate lets through: quoted mail is a stranger's program. UTF-8.
QByteArray editorPage(const QByteArray &nonce);

/// For one load of the page; nobody who writes mail can guess it.
QByteArray makeEditorNonce();

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
