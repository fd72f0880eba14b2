#pragma once

#include "mail/MailboxViewModel.h"
#include "ui/MenuEntry.h"

#include <QDate>

/// One of a list's filters as a chip; always there while any filter is in force.
struct FilterChip {
    QString icon, text;
    bool isMarked = false;
    std::function<void()> press;
};

/// The filters of one message list and the sheet for a range of dates. Each change asks for a reload.
class EmailListFilters : public ObservableObject, public std::enable_shared_from_this<EmailListFilters> {
    Q_OBJECT
public:
    explicit EmailListFilters(std::shared_ptr<MailboxViewModel> model);

    /// The date range sheet is up, with these days in it.
    Published<bool> showCustomDateRange{this, false};
    Published<QDate> customDateFrom{this}, customDateTo{this};

    void toggleHasAttachment();
    /// Messages of the last days only; the same choice again turns it off.
    void chooseDays(qint64 days);
    void clear();

    void openDateRange();
    /// The days may come in either order.
    void applyDateRange(const QDate &one, const QDate &other);
    void clearDateRange();
    bool hasDateRange() const;
    /// "Mar 2 - Mar 9"; empty unless both ends are set.
    QString rangeText() const;

    std::vector<FilterChip> chips();
    MenuSection menu();

Q_SIGNALS:
    void reloadRequested();

private:
    std::shared_ptr<MailboxViewModel> m_model;
};
