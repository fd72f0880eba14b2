#pragma once

#include "mail/EmailRecords.h"

#include <QWidget>

/// Addresses as small buttons that wrap to new lines; pressing one asks to copy its address.
class FlowingAddresses final : public QWidget {
    Q_OBJECT
public:
    explicit FlowingAddresses(QWidget *parent = nullptr);

    void setAddresses(const std::vector<EmailAddress> &addresses);

Q_SIGNALS:
    void copyRequested(const QString &address);

private:
    std::vector<EmailAddress> m_addresses;
};
