#include "mail/screens/ThreadLink.h"

#include "mail/EmailDates.h"
#include "ui/screens/AppStyle.h"
#include "ui/screens/Buttons.h"
#include "ui/screens/Fonts.h"
#include "ui/screens/RowDelegate.h"
#include "ui/screens/StyleShapes.h"

#include <QPainter>
#include <QStyleOption>

using namespace Qt::StringLiterals;

namespace {

constexpr int linkHeight = 52;
constexpr int margin = 12;
constexpr int gap = 12;

} // namespace

ThreadLink::ThreadLink(const EmailSummary &email, QWidget *parent)
    : QAbstractButton(parent)
    , m_sender(email.senderName())
    , m_subject(email.subject.value_or(tr("(No Subject)")))
    , m_date(relativeDateText(parseEmailDate(email.date))) {
    setText(u"%1, %2, %3"_s.arg(literalButtonText(m_sender), literalButtonText(m_subject), m_date));
    setAccessibleName(u"%1, %2, %3"_s.arg(m_sender, m_subject, m_date));
    setAttribute(Qt::WA_Hover);
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    pressWithReturn(this);
}

QSize ThreadLink::sizeHint() const {
    return {320, linkHeight};
}

QSize ThreadLink::minimumSizeHint() const {
    return {120, linkHeight};
}

void ThreadLink::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    const auto &theme = AppStyle::theme();
    QStyleOption option;
    option.initFrom(this);
    fillRounded(&painter, rect(), StyleMetrics::controlRadius, underMouse() ? theme.bgHover : theme.bgWhite);
    if (showsFocusRing(option))
        paintFocusRing(&painter, rect(), StyleMetrics::controlRadius, theme);
    else
        strokeRounded(&painter, rect(), StyleMetrics::controlRadius, theme.border);
    const auto content = rect().adjusted(margin, 6, -margin, -6);
    const auto dateFont = themeFont(TextStyle::caption);
    const int dateWidth = QFontMetrics(dateFont).horizontalAdvance(m_date) + 1;
    QRect line(content.topLeft(), QSize(content.width(), content.height() / 2));
    drawLine(&painter, line.adjusted(line.width() - dateWidth, 0, 0, 0), dateFont, theme.textSecondary, m_date);
    drawLine(&painter, line.adjusted(0, 0, -dateWidth - gap, 0), themeFont(TextStyle::subheadline, QFont::DemiBold),
             theme.text, m_sender);
    line.translate(0, line.height());
    drawLine(&painter, line, themeFont(TextStyle::footnote), theme.textSecondary, m_subject);
}
