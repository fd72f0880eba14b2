#include "mail/screens/DateRangeSheet.h"

#include "ui/screens/ThemeLabel.h"

#include <QDateEdit>
#include <QPushButton>
#include <QVBoxLayout>

DateRangeSheet::DateRangeSheet(std::shared_ptr<EmailListFilters> filters, QWidget *parent)
    : Sheet(tr("Custom Range"), tr("Pick the period to search."), parent)
    , m_filters(std::move(filters)) {
    setAttribute(Qt::WA_DeleteOnClose);
    m_from = addPicker(tr("From"), m_filters->customDateFrom);
    m_to = addPicker(tr("To"), m_filters->customDateTo);
    addButtons();
    connect(this, &QDialog::finished, m_filters.get(),
            [filters = m_filters.get()] { filters->showCustomDateRange = false; });
}

QDateEdit *DateRangeSheet::addPicker(const QString &label, const QDate &day) {
    auto *words = new ThemeLabel(label, TextStyle::subheadline, TextRole::secondary);
    auto *picker = new QDateEdit(day);
    picker->setCalendarPopup(true);
    picker->setAccessibleName(label);
    words->setBuddy(picker);
    auto *group = new QVBoxLayout;
    group->setSpacing(4);
    group->addWidget(words);
    group->addWidget(picker);
    column()->addLayout(group);
    return picker;
}

void DateRangeSheet::addButtons() {
    connect(addButton(tr("Cancel")), &QPushButton::clicked, this, &QDialog::reject);
    if (m_filters->hasDateRange()) {
        auto *clear = addButton(tr("Clear"));
        connect(clear, &QPushButton::clicked, m_filters.get(), &EmailListFilters::clearDateRange);
        connect(clear, &QPushButton::clicked, this, &QDialog::accept);
    }
    connect(addButton(tr("Apply"), ButtonRole::primary), &QPushButton::clicked, this, [this] {
        m_filters->applyDateRange(m_from->date(), m_to->date());
        accept();
    });
}
