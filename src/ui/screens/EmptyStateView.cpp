#include "ui/screens/EmptyStateView.h"

#include "ui/screens/Buttons.h"
#include "ui/screens/SymbolView.h"
#include "ui/screens/ThemeLabel.h"

#include <QVBoxLayout>

EmptyStateView::EmptyStateView(const ViewTexts &texts, QWidget *parent)
    : QWidget(parent)
    , m_icon(new SymbolView({}, 32))
    , m_title(new ThemeLabel({}, TextStyle::title3))
    , m_message(new ThemeLabel({}, TextStyle::body, TextRole::secondary))
    , m_button(new PrimaryButton({})) {
    m_icon->setPlate(72);
    m_message->setWordWrap(true);
    m_message->setMaximumWidth(360);
    for (auto *label : {m_title, m_message})
        label->setAlignment(Qt::AlignCenter);
    m_title->setWordWrap(true);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(24, 24, 24, 24);
    column->setSpacing(0);
    column->addStretch(4);
    column->addWidget(m_icon, 0, Qt::AlignHCenter);
    column->addSpacing(16);
    column->addWidget(m_title);
    column->addSpacing(4);
    auto *row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(m_message, 100);
    row->addStretch();
    column->addLayout(row);
    column->addSpacing(20);
    column->addWidget(m_button, 0, Qt::AlignHCenter);
    // A little above the middle looks like the middle.
    column->addStretch(5);

    connect(m_button, &QPushButton::clicked, this, &EmptyStateView::buttonPressed);
    setTexts(texts);
    setButton({});
}

void EmptyStateView::setTexts(const ViewTexts &texts) {
    m_icon->setSymbol(texts.icon);
    m_title->setText(texts.title);
    m_message->setText(texts.message);
    m_message->setVisible(!texts.message.isEmpty());
}

void EmptyStateView::setButton(const QString &text) {
    m_button->setText(text);
    m_button->setVisible(!text.isEmpty());
}
