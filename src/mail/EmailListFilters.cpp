#include "mail/EmailListFilters.h"

#include "platform/Clock.h"

#include <QLocale>

using namespace Qt::StringLiterals;

namespace {

constexpr int usualRange = 7; // days

const auto dayPattern = u"yyyy-MM-dd"_s;

struct Period {
    qint64 days;
    QString title, icon;
};

const std::vector<Period> &periods() {
    static const std::vector<Period> all{{1, u"Today"_s, u"calendar"_s},
                                         {7, u"Last 7 Days"_s, u"calendar.badge.clock"_s},
                                         {30, u"Last 30 Days"_s, u"calendar"_s}};
    return all;
}

QDate parsedDay(const std::optional<QString> &text) {
    return text ? QDate::fromString(*text, dayPattern) : QDate();
}

QDate today() {
    return Clock::shared().now().toLocalTime().date();
}

} // namespace

EmailListFilters::EmailListFilters(std::shared_ptr<MailboxViewModel> model)
    : m_model(std::move(model)) {}

void EmailListFilters::toggleHasAttachment() {
    m_model->filterHasAttachment = !m_model->filterHasAttachment;
    Q_EMIT reloadRequested();
}

void EmailListFilters::chooseDays(qint64 days) {
    m_model->filterLastDays = m_model->filterLastDays == days ? 0 : days;
    if (m_model->filterLastDays > 0) {
        m_model->filterDateFrom = std::nullopt;
        m_model->filterDateTo = std::nullopt;
    }
    Q_EMIT reloadRequested();
}

void EmailListFilters::clear() {
    m_model->clearFilters();
    Q_EMIT reloadRequested();
}

void EmailListFilters::openDateRange() {
    const auto from = parsedDay(m_model->filterDateFrom);
    const auto to = parsedDay(m_model->filterDateTo);
    customDateFrom = from.isValid() ? from : today().addDays(-usualRange);
    customDateTo = std::max(to.isValid() ? to : today(), customDateFrom.get());
    showCustomDateRange = true;
}

void EmailListFilters::applyDateRange(const QDate &one, const QDate &other) {
    m_model->filterLastDays = 0;
    m_model->filterDateFrom = std::min(one, other).toString(dayPattern);
    m_model->filterDateTo = std::max(one, other).toString(dayPattern);
    showCustomDateRange = false;
    Q_EMIT reloadRequested();
}

void EmailListFilters::clearDateRange() {
    m_model->filterDateFrom = std::nullopt;
    m_model->filterDateTo = std::nullopt;
    m_model->filterLastDays = 0;
    showCustomDateRange = false;
    Q_EMIT reloadRequested();
}

bool EmailListFilters::hasDateRange() const {
    return m_model->filterDateFrom.get() || m_model->filterDateTo.get();
}

QString EmailListFilters::rangeText() const {
    const auto from = parsedDay(m_model->filterDateFrom);
    const auto to = parsedDay(m_model->filterDateTo);
    if (!from.isValid() || !to.isValid())
        return {};
    const auto text = [](const QDate &day) { return QLocale().toString(day, u"MMM d"_s); };
    return text(from) + u" - "_s + text(to);
}

std::vector<FilterChip> EmailListFilters::chips() {
    const auto self = shared_from_this();
    std::vector<FilterChip> chips{
        {u"paperclip"_s, u"Has Attachment"_s, m_model->filterHasAttachment, [self] { self->toggleHasAttachment(); }}};
    for (const auto &period : periods())
        chips.push_back({period.icon, period.title, m_model->filterLastDays == period.days,
                         [self, days = period.days] { self->chooseDays(days); }});
    const auto range = rangeText();
    chips.push_back({u"calendar.badge.plus"_s, range.isEmpty() ? u"Custom Range"_s : range, hasDateRange(),
                     [self] { self->openDateRange(); }});
    chips.push_back({u"xmark.circle"_s, u"Clear"_s, false, [self] { self->clear(); }});
    return chips;
}

MenuSection EmailListFilters::menu() {
    const auto self = shared_from_this();
    MenuSection entries{{.text = u"Has Attachment"_s,
                         .icon = u"paperclip"_s,
                         .perform = [self] { self->toggleHasAttachment(); },
                         .isChecked = m_model->filterHasAttachment}};
    for (const auto &period : periods())
        entries.push_back({.text = period.title,
                           .icon = period.icon,
                           .perform = [self, days = period.days] { self->chooseDays(days); },
                           .isChecked = m_model->filterLastDays == period.days});
    entries.push_back({.text = u"Custom Date Range…"_s, .icon = u"calendar.badge.plus"_s, .perform = [self] {
                           self->openDateRange();
                       }});
    if (m_model->hasActiveFilters())
        entries.push_back(
            {.text = u"Clear Filters"_s, .icon = u"xmark.circle"_s, .perform = [self] { self->clear(); }});
    return entries;
}
