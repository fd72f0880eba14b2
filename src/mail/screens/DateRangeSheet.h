#pragma once

#include "mail/EmailListFilters.h"
#include "ui/screens/Sheet.h"

class QDateEdit;

/// Asks for the range of dates that a message list is to show. Deletes itself once it is closed.
class DateRangeSheet final : public Sheet {
    Q_OBJECT
public:
    explicit DateRangeSheet(std::shared_ptr<EmailListFilters> filters, QWidget *parent);

private:
    QDateEdit *addPicker(const QString &label, const QDate &day);
    void addButtons();

    std::shared_ptr<EmailListFilters> m_filters;
    QDateEdit *m_from, *m_to;
};
