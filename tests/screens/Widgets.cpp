#include "screens/Widgets.h"

#include <QAccessible>
#include <QLabel>
#include <QTest>
#include <algorithm>

void showActive(QWidget &window) {
    window.show();
    QApplication::setActiveWindow(&window);
    (void)QTest::qWaitForWindowActive(&window);
}

QString accessibleName(QWidget &widget) {
    return QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Name);
}

bool showsText(const QWidget &screen, const QString &words) {
    const auto labels = screen.findChildren<QLabel *>();
    return std::ranges::any_of(
        labels, [&](const QLabel *label) { return label->isVisible() && label->text().contains(words); });
}

QStringList tabOrder(QWidget &window) {
    QStringList names;
    auto *const first = window.focusWidget();
    do {
        names.append(accessibleName(*window.focusWidget()));
        QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
    } while (window.focusWidget() != first && names.size() < 100);
    return names;
}

QStringList namelessControls(QWidget &screen) {
    QStringList nameless;
    for (auto *widget : screen.findChildren<QWidget *>())
        if (widget->isVisible() && widget->focusPolicy() & Qt::TabFocus && accessibleName(*widget).isEmpty())
            nameless.append(QString::fromLatin1(widget->metaObject()->className()));
    return nameless;
}
