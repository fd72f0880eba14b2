#include "compose/screens/EditorToolbarButtons.h"

#include "ui/Contrast.h"
#include "ui/screens/AppStyle.h"

#include <QCoreApplication>
#include <QMenu>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

QIcon colorDot(const QColor &color, qreal devicePixelRatio) {
    constexpr int edge = 16;
    QPixmap dot(QSize(edge, edge) * devicePixelRatio);
    dot.setDevicePixelRatio(devicePixelRatio);
    dot.fill(Qt::transparent);
    QPainter painter(&dot);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(AppStyle::theme().textLight);
    painter.setBrush(color);
    painter.drawEllipse(QRectF(1.5, 1.5, edge - 3, edge - 3));
    return dot;
}

} // namespace

QMenu *makeChoiceMenu(std::span<const EditorChoice> choices, bool areColors, QWidget *parent,
                      const std::function<void(const QString &value)> &choose) {
    auto *menu = new QMenu(parent);
    for (const auto &choice : choices) {
        const auto value = QString::fromLatin1(choice.value);
        auto *action = menu->addAction(QCoreApplication::translate("ComposeEditorToolbar", choice.label));
        if (areColors)
            action->setIcon(colorDot(QColor::fromString(value), parent->devicePixelRatioF()));
        QObject::connect(action, &QAction::triggered, parent, [choose, value] { choose(value); });
    }
    return menu;
}
