#pragma once

#include "ui/screens/ButtonRole.h"

#include <QPushButton>
#include <QToolButton>

/// A button's text that shows these words as they are: Qt would take "&" for the mark of a shortcut.
QString literalButtonText(QString words);

/// A help text that shows these words as they are: Qt would take those that look like markup for it.
QString literalToolTip(const QString &words);

/// Lets Return press the button that has the focus, as it does by itself in dialogs alone.
void pressWithReturn(QAbstractButton *button);

/// The one button of a form that does what the form is for.
class PrimaryButton : public QPushButton {
    Q_OBJECT
public:
    explicit PrimaryButton(const QString &text, QWidget *parent = nullptr);
};

/// Words that act when pressed, in the accent colour. What there is no room for is cut off with an ellipsis and shown
/// before the help text.
class LinkButton : public QPushButton {
    Q_OBJECT
public:
    explicit LinkButton(const QString &text, QWidget *parent = nullptr);

    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QString shownText() const;
};

/// A symbol alone; its help text is also its accessible name.
class IconButton : public QToolButton {
    Q_OBJECT
public:
    IconButton(const QString &symbol, const QString &help, QWidget *parent = nullptr);

    void setSymbol(const QString &symbol);
    const QString &symbol() const { return m_symbol; }
    void setHelp(const QString &help);

private:
    QString m_symbol;
};

/// A choice that is on or off, small and round-ended, as in a row of filters. Pressing it does not check it: whoever
/// owns the choice does.
class Chip : public QAbstractButton {
    Q_OBJECT
public:
    Chip(const QString &symbol, const QString &text, QWidget *parent = nullptr);

    QSize sizeHint() const override;

protected:
    void nextCheckState() override {}
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_symbol;
};
