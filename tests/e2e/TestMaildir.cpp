#include "TestMaildir.h"

#include <QDateTime>
#include <QDir>

using namespace Qt::StringLiterals;

TestMaildir::TestMaildir(int messages) {
    for (const auto &folder : {u"cur"_s, u"new"_s, u"tmp"_s, u".Empty/cur"_s, u".Empty/new"_s, u".Empty/tmp"_s})
        QDir(path()).mkpath(folder);
    const auto oldest = QDateTime::currentDateTime().addDays(-2);
    for (int number = 1; number <= messages; ++number)
        write(u"%1/cur/%2.M%3.test:2,S"_s.arg(path()).arg(1600000000 + number).arg(number), u"Message %1"_s.arg(number),
              u"Body of message %1."_s.arg(number), oldest.addSecs(number));
}

void TestMaildir::write(const QString &file, const QString &subject, const QString &body, const QDateTime &date) const {
    QFile message(file);
    if (!message.open(QIODevice::WriteOnly))
        return;
    message.write(
        u"From: Ada Example <ada@example.org>\nTo: Demo <demo@example.org>\nSubject: %1\nDate: %2\n"
        "Message-ID: <%3@example.org>\nContent-Type: text/plain; charset=utf-8\n\n%4\n"_s
            .arg(subject, date.toString(Qt::RFC2822Date), QFileInfo(file).fileName().section(u':', 0, 0), body)
            .toUtf8());
}

QString TestMaildir::deliver(const QString &subject, const QString &body) {
    const auto name = u"1700000000.M%1.test"_s.arg(++m_delivered);
    write(path() + u"/tmp/"_s + name, subject, body, QDateTime::currentDateTime());
    QFile::rename(path() + u"/tmp/"_s + name, path() + u"/new/"_s + name);
    return name;
}

QStringList TestMaildir::files() const {
    return QDir(path() + u"/cur"_s).entryList(QDir::Files) + QDir(path() + u"/new"_s).entryList(QDir::Files);
}

void TestMaildir::markSeen(const QString &file) {
    QFile::rename(path() + u"/new/"_s + file, path() + u"/cur/"_s + file + u":2,S"_s);
}
