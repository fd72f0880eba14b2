#pragma once

#include <QStringList>
#include <QWidget>

/// Shows the window and makes it the active one.
void showActive(QWidget &window);

/// What a screen reader calls the widget.
QString accessibleName(QWidget &widget);

/// The visible widget of this kind and accessible name; null when there is none.
template <typename T> T *visibleNamed(const QWidget &screen, const QString &name) {
    for (auto *widget : screen.findChildren<T *>())
        if (widget->isVisible() && accessibleName(*widget) == name)
            return widget;
    return nullptr;
}

/// Whether a visible label's text contains these words.
bool showsText(const QWidget &screen, const QString &words);

/// The accessible names of what the Tab key leads to, from the widget that has the focus round to it again.
QStringList tabOrder(QWidget &window);

/// The visible widgets that the Tab key can reach and that have no accessible name.
QStringList namelessControls(QWidget &screen);
