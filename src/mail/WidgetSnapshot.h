#pragma once

#include "mail/EmailRecords.h"

/// One message as the desktop widget shows it.
struct WidgetEmailItem {
    qint64 uid = 0;
    QString from, subject, date;
    bool isRead = false;
    QString folder, fromDomain;
};

template <>
inline constexpr auto jsonFields<WidgetEmailItem> = jsonRecord(jsonField("uid", &WidgetEmailItem::uid),
                                                               jsonField("from", &WidgetEmailItem::from),
                                                               jsonField("subject", &WidgetEmailItem::subject),
                                                               jsonField("date", &WidgetEmailItem::date),
                                                               jsonField("isRead", &WidgetEmailItem::isRead),
                                                               jsonField("folder", &WidgetEmailItem::folder),
                                                               jsonField("fromDomain", &WidgetEmailItem::fromDomain));

/// What the companion processes of the application group know of the inbox: its newest messages and how many are
/// unread.
class WidgetSnapshot {
public:
    /// Takes the first messages of a page of `folder`.
    WidgetSnapshot(const std::vector<EmailSummary> &page, const QString &folder);

    /// How many messages of the page are unread.
    qint64 unseenCount() const { return m_unseenCount; }
    void write(qint64 unreadCount) const;

private:
    std::vector<WidgetEmailItem> m_items;
    qint64 m_unseenCount = 0;
};
