#include "Mailbox.h"

#include <QDateTime>
#include <QFile>
#include <QLocale>
#include <QProcess>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr int inboxMessages = 10000;
constexpr int archiveMessages = 2000;
constexpr int letterSize = 20 * 1024;       // bytes
constexpr int longLetterSize = 1024 * 1024; // bytes

QString letterHead() {
    return u"<!DOCTYPE html><html><head><style>body{margin:0;font-family:sans-serif} .row "
           u"td{padding:12px;border-bottom:"
           "1px solid #ddd} .price{color:#2e7d32;font-weight:bold} @media (max-width:600px){.row td{padding:6px}}"
           "</style></head><body><table width='100%' cellspacing='0'><tr><td height='60' bgcolor='#%1'></td></tr>"_s
               .arg(letterColor, 6, 16, QChar(u'0'));
}

QString letterRow(int number) {
    return u"<tr class='row'><td><table cellpadding='4' style='border-collapse:collapse'><tr><td style='width:80px;"
           "height:60px;background:linear-gradient(#e3f2fd,#bbdefb)'>&nbsp;</td><td><h3 style='margin:0 0 4px 0;"
           "font-size:16px'>Offer %1 of the week</h3><p style='margin:0;line-height:1.4'>A chair of oak and wool that"
           " was made to be sat on, with a <a href='https://shop.example/item/%1'>closer look</a> for the curious."
           "</p></td><td class='price' align='right'>%1.90</td></tr></table></td></tr>"_s.arg(number);
}

QString letter(int first, int size = letterSize) {
    auto html = letterHead();
    for (int row = 0; html.size() < size; ++row)
        html += letterRow(first + row);
    return html + u"</table></body></html>"_s;
}

QString prose(int number) {
    QString text;
    for (int line = 0; line < 40; ++line)
        text +=
            u"Line %1 of message %2, in which somebody tells of the weather and of the harbour.\r\n"_s.arg(line).arg(
                number);
    return text;
}

QString message(int number, const QString &subject, const QDateTime &date, const QString &html) {
    const bool isLetter = !html.isEmpty();
    return u"From: Vera Sommer <vera%1@sommer.example>\r\nTo: Dana Okafor <dana@corvanite.example>\r\n"
           "Subject: %5\r\nDate: %2\r\nMessage-ID: <bench-%1@corvanite.example>\r\n"
           "MIME-Version: 1.0\r\nContent-Type: text/%3; charset=utf-8\r\n\r\n%4"_s.arg(number)
               .arg(date.toString(Qt::RFC2822Date), isLetter ? u"html"_s : u"plain"_s, isLetter ? html : prose(number),
                    subject);
}

} // namespace

Mailbox::Mailbox() {
    fill(path(), inboxMessages);
    fill(folder(u"Archive"_s), archiveMessages);
    fill(folder(fileFolder()), 1, fileSize);
    fill(folder(threadFolder()), 0);
    for (int number = 0; number < newestMessages; ++number)
        writeNewest(number);
    for (int number = 0; number < threadMessages; ++number)
        writeThreadMessage(number);
    fill(folder(longLetterFolder()), 0);
    writeLongLetter();
}

void Mailbox::fill(const QString &folder, int messages, qint64 fileMegabytes) {
    const QStringList arguments{u"--fill"_s, QString::number(messages), folder, u"--attachment"_s,
                                QString::number(fileMegabytes)};
    if (QProcess::execute(QString::fromUtf8(CORVANITE_DEVSERVER), arguments))
        throw std::runtime_error("the mailbox could not be filled");
}

void Mailbox::writeNewest(int number) {
    const bool isUnread = number % 4 < 2;
    write(path(), number, isUnread ? u""_s : u"S"_s, u"Note %1 on the weather"_s.arg(number));
}

void Mailbox::writeThreadMessage(int number) {
    write(folder(threadFolder()), number, u"S"_s, u"Re: The harbour in winter"_s);
}

void Mailbox::writeLongLetter() {
    write(folder(longLetterFolder()), 0, u"S"_s, u"All offers of the year"_s, letter(0, longLetterSize));
}

void Mailbox::write(const QString &folder, int number, const QString &flags, const QString &subject) {
    write(folder, number, flags, subject, number % 2 == 0 ? letter(number) : QString());
}

void Mailbox::write(const QString &folder, int number, const QString &flags, const QString &subject,
                    const QString &html) {
    const auto date = QDateTime::currentDateTime().addSecs(number);
    QFile file(u"%1/cur/%2.N%3.corvanite:2,%4"_s.arg(folder).arg(date.toSecsSinceEpoch()).arg(number).arg(flags));
    if (!file.open(QIODevice::WriteOnly) || file.write(message(number, subject, date, html).toUtf8()) < 0)
        throw std::runtime_error("a message could not be written");
}
