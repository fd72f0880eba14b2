#include "ui/screens/SwipeTrack.h"

#include "ui/Contrast.h"
#include "ui/SystemColors.h"
#include "ui/screens/AppStyle.h"
#include "ui/screens/Fonts.h"
#include "ui/screens/StyleShapes.h"
#include "ui/screens/Symbols.h"
#include "ui/screens/ThemeColor.h"

#include <QKeyEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace {

constexpr int symbolSize = 18;
constexpr int textHeight = 16;

class SwipeButton final : public QAbstractButton {
public:
    SwipeButton(const MenuEntry &action, ThemeColor color, QWidget *parent)
        : QAbstractButton(parent)
        , m_symbol(action.icon)
        , m_color(color) {
        setText(action.text);
        setFocusPolicy(Qt::StrongFocus);
    }

protected:
    /// All keys but this one are the track's.
    void keyPressEvent(QKeyEvent *event) override {
        if (event->key() == Qt::Key_Space)
            QAbstractButton::keyPressEvent(event);
        else
            event->ignore();
    }

    void paintEvent(QPaintEvent *) override {
        QPainter painter(this);
        const auto fill = m_color(AppStyle::theme());
        const auto ink = contrastRatio(Qt::white, fill) >= 4.5 ? QColor(Qt::white) : QColor(Qt::black);
        painter.fillRect(rect(), isDown() ? fill.darker(115) : fill);
        const auto top = (height() - symbolSize - textHeight - 4) / 2;
        paintSymbol(&painter, m_symbol, QRectF((width() - symbolSize) / 2.0, top, symbolSize, symbolSize), ink);
        painter.setPen(ink);
        painter.setFont(themeFont(TextStyle::caption, QFont::DemiBold));
        if (painter.fontMetrics().horizontalAdvance(text()) < width())
            painter.drawText(QRect(0, top + symbolSize + 4, width(), textHeight), Qt::AlignCenter, text());
        if (hasFocus())
            strokeRounded(&painter, QRectF(rect()).adjusted(3, 3, -3, -3), 5, ink, StyleMetrics::focusRingWidth);
    }

private:
    QString m_symbol;
    ThemeColor m_color;
};

ThemeColor actionColor(SwipeEdge edge, std::size_t number, const MenuEntry &action) {
    if (action.isDestructive)
        return systemRed;
    if (edge == SwipeEdge::trailing)
        return systemGreen;
    return number == 0 ? systemBlue : systemOrange;
}

} // namespace

SwipeTrack::SwipeTrack(QWidget *list)
    : QWidget(list) {
    hide();
}

void SwipeTrack::setActions(SwipeEdge edge, std::vector<MenuEntry> actions) {
    for (auto *button : m_buttons) {
        button->hide();
        button->deleteLater();
    }
    m_buttons.clear();
    m_edge = edge;
    m_actions = std::move(actions);
    for (std::size_t number = 0; number < m_actions.size(); ++number) {
        auto *button = new SwipeButton(m_actions[number], actionColor(edge, number, m_actions[number]), this);
        connect(button, &QAbstractButton::clicked, this, [this, number] { Q_EMIT actionChosen(number); });
        button->show();
        m_buttons.push_back(button);
    }
}

void SwipeTrack::layOpen(const QRect &row, const RowSwipe &swipe, double offset) {
    const int width = qRound(std::abs(offset));
    setGeometry(m_edge == SwipeEdge::leading ? row.left() : row.right() + 1 - width, row.top(), width, row.height());
    placeButtons(swipe.isFull());
    setVisible(width > 0);
}

/// All share the room; in a full swipe the first one has it alone.
void SwipeTrack::placeButtons(bool isFull) {
    const auto count = int(m_buttons.size());
    for (int number = 0; number < count; ++number) {
        const int place = m_edge == SwipeEdge::leading ? number : count - 1 - number;
        const int left = isFull ? 0 : width() * place / count;
        const int right = isFull ? width() : width() * (place + 1) / count;
        m_buttons[std::size_t(number)]->setGeometry(left, 0, right - left, height());
        m_buttons[std::size_t(number)]->setVisible(!isFull || number == 0);
    }
}

void SwipeTrack::focusFirst() {
    if (!m_buttons.empty())
        m_buttons.front()->setFocus(Qt::TabFocusReason);
}

void SwipeTrack::moveFocus(int step) {
    const auto focused = std::find(m_buttons.begin(), m_buttons.end(), focusWidget());
    const auto number = std::clamp(int(focused - m_buttons.begin()) + step, 0, int(m_buttons.size()) - 1);
    m_buttons[std::size_t(number)]->setFocus(Qt::TabFocusReason);
}

void SwipeTrack::pressFocused() {
    if (auto *button = qobject_cast<QAbstractButton *>(focusWidget()))
        button->click();
}

void SwipeTrack::keyPressEvent(QKeyEvent *event) {
    const int towardsRight = m_edge == SwipeEdge::leading ? 1 : -1;
    switch (event->key()) {
    case Qt::Key_Right:
        return moveFocus(towardsRight);
    case Qt::Key_Left:
        return moveFocus(-towardsRight);
    case Qt::Key_Escape:
    case Qt::Key_Up:
    case Qt::Key_Down:
        return Q_EMIT closeRequested();
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return pressFocused();
    default:
        QWidget::keyPressEvent(event);
    }
}
