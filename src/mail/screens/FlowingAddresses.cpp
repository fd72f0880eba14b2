#include "mail/screens/FlowingAddresses.h"

#include "ui/screens/Buttons.h"
#include "ui/screens/FlowLayout.h"

namespace {

constexpr int spacing = 4;

} // namespace

FlowingAddresses::FlowingAddresses(QWidget *parent)
    : QWidget(parent) {
    auto *layout = new FlowLayout(spacing, this);
    layout->setContentsMargins(0, 0, 0, 0);
}

void FlowingAddresses::setAddresses(const std::vector<EmailAddress> &addresses) {
    if (m_addresses == addresses)
        return;
    m_addresses = addresses;
    qDeleteAll(findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly));
    for (size_t number = 0; number < addresses.size(); ++number) {
        const auto &address = addresses[number];
        const auto copied = address.email.value_or(address.address.value_or(QString()));
        const bool isLast = number + 1 == addresses.size();
        auto *button =
            new LinkButton(literalButtonText(address.displayName() + (isLast ? QString() : QStringLiteral(","))));
        button->setToolTip(literalToolTip(tr("Click to copy %1").arg(copied)));
        button->setAccessibleName(button->toolTip());
        connect(button, &LinkButton::clicked, this, [this, copied] { Q_EMIT copyRequested(copied); });
        layout()->addWidget(button);
    }
}
