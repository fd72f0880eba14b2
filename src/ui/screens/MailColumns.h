#pragma once

#include "ui/PaneLayout.h"

#include <QWidget>

class MacPaneDivider;

/// The list, the divider and the message view side by side.
class MailColumns : public QWidget {
    Q_OBJECT
public:
    MailColumns(QWidget *list, QWidget *message, UserDefaults &defaults = UserDefaults::standard(),
                QWidget *parent = nullptr);

    MacPaneDivider *divider() const { return m_divider; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void arrange();

    QWidget *m_list;
    MacPaneDivider *m_divider;
    QWidget *m_message;
};
