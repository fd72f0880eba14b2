#pragma once

#include "ui/screens/ButtonRole.h"

#include <QDialog>

class QAbstractButton;
class QHBoxLayout;
class QPushButton;
class QVBoxLayout;

/// A small window over the one it belongs to, which waits meanwhile. Show it with `open()`; Escape closes it.
class Sheet : public QDialog {
    Q_OBJECT
public:
    Sheet(const QString &title, const QString &subtitle, QWidget *parent);

    /// Where the content goes, between the heading and the buttons.
    QVBoxLayout *column() const { return m_column; }
    /// Buttons stand at the bottom right in the order in which they were added; a primary one answers Return.
    QPushButton *addButton(const QString &text, ButtonRole role = ButtonRole::plain);
    /// A small button beside the title.
    void addHeaderButton(QAbstractButton *button);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QVBoxLayout *m_column;
    QHBoxLayout *m_header, *m_buttons;
};
