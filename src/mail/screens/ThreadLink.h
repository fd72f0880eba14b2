#pragma once

#include "mail/EmailRecords.h"

#include <QAbstractButton>

/// A related message in a list: who wrote it, its subject and when.
class ThreadLink final : public QAbstractButton {
    Q_OBJECT
public:
    explicit ThreadLink(const EmailSummary &email, QWidget *parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_sender, m_subject, m_date;
};
