#pragma once

#include <QPixmap>
#include <QString>
#include <QWidget>

struct ThemeDefinition;

/// What lies behind a screen: a plain colour, and under the theme `space` a glow and a star field.
class MailThemeBackground : public QWidget {
    Q_OBJECT
public:
    /// `elevated` is the colour of raised surfaces instead of that of the page.
    explicit MailThemeBackground(bool elevated = false, QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    const QPixmap &sky(const ThemeDefinition &theme);

    bool m_elevated;
    QPixmap m_sky;
};
