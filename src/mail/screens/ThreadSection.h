#pragma once

#include "mail/EmailDetailState.h"

#include <QWidget>

class DisclosureButton;

/// The related messages behind a button that unfolds them; hidden where there are none.
class ThreadSection final : public QWidget {
    Q_OBJECT
public:
    explicit ThreadSection(std::shared_ptr<EmailDetailState> state, QWidget *parent = nullptr);

private:
    void render();
    void setLinks(const std::vector<EmailSummary> &emails);

    std::shared_ptr<EmailDetailState> m_state;
    DisclosureButton *m_toggle;
    QWidget *m_list;
    std::vector<EmailSummary> m_links;
};
