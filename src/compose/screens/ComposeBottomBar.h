#pragma once

#include "compose/ComposeState.h"

#include <QWidget>

class IconButton;
class QPushButton;
class Spinner;

/// What can be done with the message that is being written.
class ComposeBottomBar final : public QWidget {
    Q_OBJECT
public:
    explicit ComposeBottomBar(std::shared_ptr<ComposeState> state, QWidget *parent = nullptr);

Q_SIGNALS:
    void sendRequested();
    void ccRequested();
    void bccRequested();
    void discardRequested();

private:
    QPushButton *addButton(const QString &text, const QString &symbol = {});
    IconButton *addIconButton(const QString &symbol, const QString &help);
    void render();

    std::shared_ptr<ComposeState> m_state;
    QPushButton *m_send, *m_ai, *m_cc, *m_bcc;
    Spinner *m_sending;
};
