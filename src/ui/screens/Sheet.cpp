#include "ui/screens/Sheet.h"

#include "ui/screens/AppStyle.h"
#include "ui/screens/Buttons.h"
#include "ui/screens/ThemeLabel.h"

#include <QMouseEvent>
#include <QPainter>
#include <QVBoxLayout>
#include <QWindow>

Sheet::Sheet(const QString &title, const QString &subtitle, QWidget *parent)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint)
    , m_column(new QVBoxLayout)
    , m_header(new QHBoxLayout)
    , m_buttons(new QHBoxLayout) {
    setWindowTitle(title);
    setWindowModality(Qt::WindowModal);
    auto *outer = new QVBoxLayout(this);
    outer->setContentsMargins(24, 24, 24, 20);
    outer->setSpacing(4);
    m_header->addWidget(new ThemeLabel(title, TextStyle::title3), 1);
    outer->addLayout(m_header);
    if (!subtitle.isEmpty())
        outer->addWidget(new ThemeLabel(subtitle, TextStyle::body, TextRole::secondary));
    outer->addSpacing(12);
    m_column->setSpacing(12);
    outer->addLayout(m_column, 1);
    m_buttons->setSpacing(8);
    m_buttons->addStretch();
    outer->addSpacing(16);
    outer->addLayout(m_buttons);
}

QPushButton *Sheet::addButton(const QString &text, ButtonRole role) {
    auto *button = new QPushButton(text);
    setButtonRole(button, role);
    button->setAutoDefault(false);
    pressWithReturn(button);
    button->setDefault(role == ButtonRole::primary);
    m_buttons->addWidget(button);
    return button;
}

void Sheet::addHeaderButton(QAbstractButton *button) {
    m_header->addWidget(button);
}

/// It has no title bar to be moved by.
void Sheet::mousePressEvent(QMouseEvent *event) {
    if (event->button() == Qt::LeftButton)
        windowHandle()->startSystemMove();
}

void Sheet::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.setPen(AppStyle::theme().textLight);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}
