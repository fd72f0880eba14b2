#include "ui/screens/KeyCapView.h"

#include "ui/screens/AppStyle.h"
#include "ui/screens/StyleShapes.h"

#include <QPainter>

namespace {

constexpr int sideMargin = 7;
constexpr int smallestWidth = 26;
constexpr qreal radius = 5;

} // namespace

KeyCapView::KeyCapView(const QString &cap, QWidget *parent)
    : ThemeLabel(cap, TextStyle::footnote, TextRole::main, parent) {
    setAlignment(Qt::AlignCenter);
    setContentsMargins(sideMargin, 3, sideMargin, 3);
    setMinimumWidth(smallestWidth);
}

void KeyCapView::paintEvent(QPaintEvent *event) {
    QPainter painter(this);
    const auto &theme = AppStyle::theme();
    fillRounded(&painter, rect(), radius, theme.bgHover);
    strokeRounded(&painter, rect(), radius, controlBorderColor(theme));
    ThemeLabel::paintEvent(event);
}
