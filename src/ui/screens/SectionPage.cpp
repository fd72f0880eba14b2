#include "ui/screens/SectionPage.h"

#include "ui/screens/Buttons.h"
#include "ui/screens/ThemeLabel.h"

#include <QShortcut>
#include <QVBoxLayout>

namespace {

constexpr int greatestWidth = 800;

} // namespace

SectionPage::SectionPage(const QString &title, QWidget *parent)
    : QWidget(parent)
    , m_header(new QHBoxLayout)
    , m_column(new QVBoxLayout) {
    auto *back = new IconButton(QStringLiteral("chevron.left"), tr("Back to Mail"));
    connect(back, &IconButton::clicked, this, &SectionPage::backRequested);
    connect(new QShortcut(QKeySequence::Back, this), &QShortcut::activated, this, &SectionPage::backRequested);
    m_header->setContentsMargins(8, 12, 12, 4);
    m_header->setSpacing(4);
    m_header->addWidget(back);
    m_header->addWidget(new ThemeLabel(title, TextStyle::title3), 1);
    m_column->setContentsMargins(0, 0, 0, 0);
    m_column->setSpacing(8);

    auto *content = new QWidget;
    content->setMaximumWidth(greatestWidth);
    auto *inner = new QVBoxLayout(content);
    inner->setContentsMargins(0, 0, 0, 0);
    inner->setSpacing(4);
    inner->addLayout(m_header);
    inner->addLayout(m_column, 1);
    auto *outer = new QHBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->addStretch();
    outer->addWidget(content, 1000);
    outer->addStretch();
}

void SectionPage::addTool(QAbstractButton *button) {
    m_header->addWidget(button);
}
