#pragma once

#include "app/MainScreenState.h"

#include <QWidget>

/// Messages that could not be sent and whose screens had gone by then: each can be opened again. Shows the newest
/// ones; takes no room while there are none.
class UnsentMessagesView final : public QWidget {
    Q_OBJECT
public:
    explicit UnsentMessagesView(std::shared_ptr<MainScreenState> state, QWidget *parent = nullptr);

private:
    void render();
    void addRow(const UnsentNotice &notice);

    std::shared_ptr<MainScreenState> m_state;
    std::vector<UnsentNotice> m_shown;
};
