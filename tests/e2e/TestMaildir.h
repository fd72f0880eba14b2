#pragma once

#include <QTemporaryDir>

/// A Maildir with plain messages and the folder "Empty", to which more can be delivered as a mail server does it.
class TestMaildir {
public:
    /// Starts with this many messages in the inbox, "Message 1" the oldest; all are read.
    explicit TestMaildir(int messages);

    QString path() const { return m_folder.path(); }

    /// Delivers an unread message by renaming it into "new"; returns the name of its file.
    QString deliver(const QString &subject, const QString &body = QStringLiteral("A body."));
    /// The file names of the inbox's messages.
    QStringList files() const;
    /// Marks a message as read, as another mail program does.
    void markSeen(const QString &file);

private:
    void write(const QString &path, const QString &subject, const QString &body, const QDateTime &date) const;

    QTemporaryDir m_folder;
    int m_delivered = 0;
};
