#include "mail/screens/EmailDrag.h"

#include "ui/screens/AppStyle.h"
#include "ui/screens/Fonts.h"
#include "ui/screens/StyleShapes.h"
#include "ui/screens/Symbols.h"

#include <QDrag>
#include <QMimeData>
#include <QPainter>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace {

constexpr int cardHeight = 36;
constexpr int widestText = 260;
constexpr int padding = 12;
constexpr int symbolSize = 16;

QPixmap dragCard(const QString &words, qreal devicePixelRatio) {
    const auto &theme = AppStyle::theme();
    const auto font = themeFont(TextStyle::subheadline, QFont::DemiBold);
    const auto text = QFontMetrics(font).elidedText(words, Qt::ElideRight, widestText);
    const int textLeft = padding + symbolSize + 8;
    const QSize size(textLeft + QFontMetrics(font).horizontalAdvance(text) + padding, cardHeight);
    QPixmap card(size * devicePixelRatio);
    card.setDevicePixelRatio(devicePixelRatio);
    card.fill(Qt::transparent);
    QPainter painter(&card);
    const QRectF frame({}, QSizeF(size));
    fillRounded(&painter, frame, StyleMetrics::controlRadius, theme.bgWhite);
    strokeRounded(&painter, frame, StyleMetrics::controlRadius, controlBorderColor(theme));
    paintSymbol(&painter, u"envelope.fill"_s, QRectF(padding, (cardHeight - symbolSize) / 2.0, symbolSize, symbolSize),
                theme.primary);
    painter.setFont(font);
    painter.setPen(theme.text);
    painter.drawText(frame.adjusted(textLeft, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft, text);
    return card;
}

} // namespace

bool dragEmails(QWidget *list, const std::vector<EmailDragData> &items, const QString &subject) {
    auto *data = new QMimeData;
    data->setData(emailDragType, encodeEmailDrag(items));
    auto *drag = new QDrag(list);
    drag->setMimeData(data);
    drag->setPixmap(dragCard(items.size() == 1 ? subject : QObject::tr("%1 messages").arg(items.size()),
                             list->devicePixelRatioF()));
    drag->setHotSpot({-padding, cardHeight / 2});
    return drag->exec(Qt::MoveAction) == Qt::MoveAction;
}
