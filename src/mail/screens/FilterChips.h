#pragma once

#include "mail/EmailListState.h"

#include <QWidget>

class Chip;

/// The filters of a message list in a row of chips, there while any of them is in force.
class FilterChips final : public QWidget {
    Q_OBJECT
public:
    explicit FilterChips(std::shared_ptr<EmailListState> state, QWidget *parent = nullptr);

private:
    void render();
    void press(std::size_t number);

    std::shared_ptr<EmailListState> m_state;
    std::vector<Chip *> m_chips;
};
