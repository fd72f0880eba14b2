#pragma once

#include "ui/ThemeDefinition.h"

#include <QAbstractButton>

class ThemeManager;

/// One theme to choose: its swatch and its name; checked while it is the current one.
class ThemePickerCell : public QAbstractButton {
    Q_OBJECT
public:
    explicit ThemePickerCell(const ThemeDefinition &theme, QWidget *parent = nullptr);

    const QString &themeId() const { return m_theme.id; }
    QSize sizeHint() const override;

protected:
    void nextCheckState() override {}
    void paintEvent(QPaintEvent *event) override;

private:
    ThemeDefinition m_theme;
};

/// All themes in a grid; pressing one puts it on at once.
class ThemePickerView : public QWidget {
    Q_OBJECT
public:
    explicit ThemePickerView(ThemeManager *themeManager, QWidget *parent = nullptr);

private:
    void render();

    ThemeManager *m_themeManager;
    QList<ThemePickerCell *> m_cells;
};
