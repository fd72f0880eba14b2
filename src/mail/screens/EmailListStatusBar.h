#pragma once

#include "mail/EmailListState.h"

#include <QWidget>

class IconButton;
class Spinner;
class ThemeLabel;

/// What stands under a message list: what goes on, how much is selected, which page this is and the ways to others.
class EmailListStatusBar final : public QWidget {
    Q_OBJECT
public:
    explicit EmailListStatusBar(std::shared_ptr<EmailListState> state, QWidget *parent = nullptr);

private:
    void render();

    std::shared_ptr<EmailListState> m_state;
    Spinner *m_jobsSpinner;
    ThemeLabel *m_jobs, *m_failure, *m_selected, *m_page;
    IconButton *m_previous, *m_next;
};
