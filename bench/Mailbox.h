#pragma once

#include <QString>
#include <QTemporaryDir>

/// A mailbox to measure with: an inbox of 10,000 messages, an archive of 2,000, and on top of the inbox newer messages
/// of which every second one is a newsletter of 20 KB of HTML and the others are plain text.
class Mailbox {
public:
    static constexpr int newestMessages = 40;

    Mailbox();

    QString path() const { return m_folder.path(); }

private:
    void fill(const QString &folder, int messages);
    void writeNewest(int number);

    QTemporaryDir m_folder;
};

/// A colour that stands at the top of the page of each newsletter and nowhere else.
inline constexpr unsigned letterColor = 0xc2185b;
