#include "mail/EmailDates.h"

#include "platform/Clock.h"

#include <QLocale>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 secondsPerWeek = 604800;

const QRegularExpression &isoDate() {
    static const QRegularExpression pattern(
        u"\\A(?<year>\\d{4})-(?<month>\\d\\d)-(?<day>\\d\\d)T(?<hour>\\d\\d):(?<minute>\\d\\d):(?<second>\\d\\d)"
        "(?:\\.(?<fraction>\\d{1,9}))?(?<zone>Z|[+-]\\d\\d:?\\d\\d)\\z"_s);
    return pattern;
}

const QRegularExpression &headerDate() {
    static const QRegularExpression pattern(
        u"\\A(?:(?:Mon|Tue|Wed|Thu|Fri|Sat|Sun), )?(?<day>\\d\\d?) (?<month>[A-Z]{3}) (?<year>\\d{4}) "
        "(?<hour>\\d\\d?):(?<minute>\\d\\d):(?<second>\\d\\d) (?<zone>Z|UT|UTC|GMT|[+-]\\d\\d:?\\d\\d)\\z"_s,
        QRegularExpression::CaseInsensitiveOption);
    return pattern;
}

int monthNumber(const QString &month) {
    static const QString names = u"janfebmaraprmayjunjulaugsepoctnovdec"_s;
    bool isNumber = false;
    const int number = month.toInt(&isNumber);
    const auto place = names.indexOf(month.toLower());
    if (isNumber)
        return number;
    return place % 3 == 0 ? int(place) / 3 + 1 : 0;
}

int offsetSeconds(QString zone) {
    zone.remove(u':');
    if (zone.size() != 5)
        return 0;
    const int size = zone.mid(1, 2).toInt() * 3600 + zone.right(2).toInt() * 60;
    return zone.startsWith(u'-') ? -size : size;
}

QDateTime matchedDate(const QRegularExpression &pattern, const QString &text) {
    const auto match = pattern.match(text);
    if (!match.hasMatch())
        return {};
    const auto number = [&](const QString &part) { return match.captured(part).toInt(); };
    const QDate day(number(u"year"_s), monthNumber(match.captured(u"month"_s)), number(u"day"_s));
    const auto milliseconds =
        pattern == isoDate() ? match.captured(u"fraction"_s).leftJustified(3, u'0', true).toInt() : 0;
    const QTime time(number(u"hour"_s), number(u"minute"_s), number(u"second"_s), milliseconds);
    if (!day.isValid() || !time.isValid())
        return {};
    return QDateTime(day, time, Qt::OffsetFromUTC, offsetSeconds(match.captured(u"zone"_s))).toLocalTime();
}

QString pattern(const QDateTime &date, const QDateTime &now) {
    if (date.date() == now.date())
        return u"h:mm Ap"_s;
    if (date.secsTo(now) < secondsPerWeek)
        return u"ddd"_s;
    return date.date().year() == now.date().year() ? u"MMM d"_s : u"MMM d, yyyy"_s;
}

} // namespace

QDateTime parseEmailDate(const std::optional<QString> &text) {
    if (!text)
        return Clock::shared().now();
    for (const auto *form : {&isoDate(), &headerDate()})
        if (const auto date = matchedDate(*form, *text); date.isValid())
            return date;
    return Clock::shared().now();
}

QString relativeDateText(const QDateTime &date) {
    const auto local = date.toLocalTime();
    return QLocale().toString(local, pattern(local, Clock::shared().now().toLocalTime()));
}
