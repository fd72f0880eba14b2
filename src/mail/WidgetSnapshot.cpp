#include "mail/WidgetSnapshot.h"

#include "net/JSONText.h"
#include "platform/Clock.h"
#include "platform/StandardPaths.h"
#include "platform/UserDefaults.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t maximumItems = 10;

WidgetEmailItem widgetItem(const EmailSummary &email, const QString &folder) {
    return {.uid = email.uid,
            .from = email.from.value_or(u"Unknown"_s),
            .subject = email.subject.value_or(u"(No subject)"_s),
            .date = email.date.value_or(QString()),
            .isRead = email.seen.value_or(false),
            .folder = folder,
            .fromDomain = addressDomain(email.senderAddress())};
}

} // namespace

WidgetSnapshot::WidgetSnapshot(const std::vector<EmailSummary> &page, const QString &folder) {
    for (std::size_t index = 0; index < std::min(page.size(), maximumItems); ++index)
        m_items.push_back(widgetItem(page[index], folder));
    m_unseenCount =
        std::count_if(page.begin(), page.end(), [](const EmailSummary &email) { return !email.seen.value_or(false); });
}

void WidgetSnapshot::write(qint64 unreadCount) const {
    const auto store = UserDefaults::suite(applicationGroupName());
    if (!store)
        return;
    store->set(u"widget_recent_emails"_s, encodeJSONText(m_items));
    store->set(u"widget_unread_count"_s, QJsonValue(unreadCount));
    store->set(u"widget_last_update"_s, QJsonValue(double(Clock::shared().now().toMSecsSinceEpoch()) / 1000));
}
