#include "ui/screens/SearchBar.h"

#include "ui/screens/AppStyle.h"
#include "ui/screens/StyleShapes.h"
#include "ui/screens/Symbols.h"

#include <QAction>
#include <QKeyEvent>
#include <QPainter>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {
constexpr int symbolSize = 14;
constexpr int symbolColumn = 30;
} // namespace

SearchBar::SearchBar(const QString &placeholder, QWidget *parent)
    : QLineEdit(parent)
    , m_clear(addAction(symbolIcon(u"xmark.circle.fill"_s), QLineEdit::TrailingPosition)) {
    setPlaceholderText(placeholder);
    setAccessibleName(placeholder);
    setTextMargins(symbolColumn - StyleMetrics::fieldPadding, 0, 0, 0);
    m_clear->setToolTip(u"Clear search"_s);
    m_clear->setText(u"Clear search"_s);
    m_clear->setVisible(false);
    connect(m_clear, &QAction::triggered, this, &QLineEdit::clear);
    connect(this, &QLineEdit::textChanged, this, [this](const QString &text) { m_clear->setVisible(!text.isEmpty()); });
}

void SearchBar::requestFocus() {
    setFocus(Qt::ShortcutFocusReason);
    selectAll();
}

QSize SearchBar::sizeHint() const {
    return {220, QLineEdit::sizeHint().height()};
}

void SearchBar::paintEvent(QPaintEvent *event) {
    QLineEdit::paintEvent(event);
    QPainter painter(this);
    const QRectF symbol(StyleMetrics::fieldPadding, (height() - symbolSize) / 2, symbolSize, symbolSize);
    paintSymbol(&painter, u"magnifyingglass"_s, symbol, placeholderColor(AppStyle::theme()));
}

void SearchBar::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Escape && !text().isEmpty())
        clear();
    else
        QLineEdit::keyPressEvent(event);
}
