#pragma once

#include <QString>
#include <QTemporaryDir>

/// A mailbox to measure with: an inbox of 10,000 messages, an archive of 2,000, and on top of the inbox newer messages
/// of which every second one is a newsletter of 20 KB of HTML and the others are plain text. A folder holds such
/// messages as one thread, another a message with a big file, and another a newsletter of 1 MB.
class Mailbox {
public:
    static constexpr int newestMessages = 40;
    static constexpr int threadMessages = 41;
    static constexpr qint64 fileSize = 25; // megabytes

    Mailbox();

    QString path() const { return m_folder.path(); }
    static QString threadFolder() { return QStringLiteral("Thread"); }
    static QString fileFolder() { return QStringLiteral("Files"); }
    static QString longLetterFolder() { return QStringLiteral("Long"); }

private:
    QString folder(const QString &name) const { return path() + QStringLiteral("/.") + name; }
    void fill(const QString &folder, int messages, qint64 fileMegabytes = 0);
    void writeNewest(int number);
    void writeThreadMessage(int number);
    void writeLongLetter();
    void write(const QString &folder, int number, const QString &flags, const QString &subject);
    void write(const QString &folder, int number, const QString &flags, const QString &subject, const QString &html);

    QTemporaryDir m_folder;
};

/// A colour that stands at the top of the page of each newsletter and nowhere else.
inline constexpr unsigned letterColor = 0xc2185b;
