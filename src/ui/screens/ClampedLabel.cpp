#include "ui/screens/ClampedLabel.h"

#include "ui/screens/Buttons.h"

#include "ui/screens/AppStyle.h"
#include "ui/screens/StyleShapes.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyleOption>
#include <QTextLayout>
#include <QToolTip>

namespace {

/// No label needs more of a text than this; laying out takes time that grows with its length.
constexpr qsizetype longestText = 4000;
constexpr int smallestWidth = 40;

} // namespace

ClampedLabel::ClampedLabel(int maximumLines, TextStyle style, TextRole role, QWidget *parent)
    : ThemeLabel({}, style, role, parent)
    , m_maximumLines(maximumLines) {
    auto policy = sizePolicy();
    policy.setHorizontalPolicy(QSizePolicy::Preferred);
    policy.setHeightForWidth(hasHeightForWidth());
    setSizePolicy(policy);
}

QSize ClampedLabel::sizeHint() const {
    const auto words = text().left(longestText);
    const int width = fontMetrics().horizontalAdvance(words.simplified()) + 1;
    return QSize(std::max(width, 1), lineHeight()).grownBy(contentsMargins());
}

QSize ClampedLabel::minimumSizeHint() const {
    return {std::min(smallestWidth, sizeHint().width()), sizeHint().height()};
}

int ClampedLabel::heightForWidth(int width) const {
    const auto margins = contentsMargins();
    const auto count = lines(width - margins.left() - margins.right()).size();
    return std::max(1, int(count)) * lineHeight() + margins.top() + margins.bottom();
}

QStringList ClampedLabel::lines(int width) const {
    const auto words = text().left(longestText).simplified();
    QTextLayout layout(words, font());
    QTextOption option;
    option.setWrapMode(m_maximumLines > 1 ? QTextOption::WrapAtWordBoundaryOrAnywhere : QTextOption::NoWrap);
    layout.setTextOption(option);
    QStringList shown;
    layout.beginLayout();
    for (auto line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        const bool isLast = shown.size() + 1 == m_maximumLines;
        const auto rest = words.mid(line.textStart(), isLast ? -1 : line.textLength());
        shown.append(isLast ? fontMetrics().elidedText(rest, m_elideMode, width) : rest);
        if (isLast)
            break;
    }
    layout.endLayout();
    return shown;
}

bool ClampedLabel::isCut() const {
    const auto shown = lines(contentsRect().width());
    return !shown.isEmpty() && !text().simplified().endsWith(shown.last());
}

bool ClampedLabel::event(QEvent *event) {
    if (event->type() != QEvent::ToolTip || !toolTip().isEmpty() || !isCut())
        return ThemeLabel::event(event);
    QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), literalToolTip(text()), this);
    return true;
}

void ClampedLabel::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    QStyleOption option;
    option.initFrom(this);
    painter.setPen(palette().color(QPalette::WindowText));
    const bool isRightToLeft = text().isRightToLeft();
    painter.setLayoutDirection(isRightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    const auto alignment = Qt::AlignVCenter | Qt::AlignAbsolute | (isRightToLeft ? Qt::AlignRight : Qt::AlignLeft);
    auto place = contentsRect();
    if (m_maximumLines > 1)
        place.setHeight(lineHeight());
    for (const auto &line : lines(place.width())) {
        painter.drawText(place, int(alignment) | Qt::TextSingleLine, line);
        place.translate(0, lineHeight());
    }
    if (showsFocusRing(option))
        paintFocusRing(&painter, rect(), StyleMetrics::rowRadius, AppStyle::theme());
}
