#include "ui/screens/MacSidebarHeader.h"

#include "ui/screens/BrandMark.h"
#include "ui/screens/ButtonRole.h"
#include "ui/screens/Symbols.h"
#include "ui/screens/ThemeLabel.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;

MacSidebarAction::MacSidebarAction(const QString &icon, const QString &title, const QString &help, QWidget *parent)
    : QPushButton(symbolIcon(icon), title, parent) {
    setButtonRole(this, ButtonRole::primary);
    setToolTip(help);
    setAccessibleDescription(help);
    setMinimumHeight(36);
}

MacSidebarHeader::MacSidebarHeader(QWidget *parent)
    : QWidget(parent) {
    auto *brand = new QHBoxLayout;
    brand->setSpacing(12);
    brand->addWidget(new BrandMark(u"envelope"_s, 36));
    auto *name = new ThemeLabel(u"Corvanite"_s, TextStyle::title3);
    brand->addWidget(name, 1);

    auto *compose = new MacSidebarAction(u"square.and.pencil"_s, u"Compose"_s, u"New Message (⌘N)"_s);
    connect(compose, &QPushButton::clicked, this, &MacSidebarHeader::composeRequested);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(16, 16, 16, 12);
    column->setSpacing(16);
    column->addLayout(brand);
    column->addWidget(compose);
}
