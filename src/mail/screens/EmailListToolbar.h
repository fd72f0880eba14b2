#pragma once

#include "mail/EmailListState.h"

#include <QWidget>

class IconButton;
class QHBoxLayout;
class Spinner;

/// The buttons over a message list: what can be done to the selected messages, the filters, and reading the page again.
class EmailListToolbar final : public QWidget {
    Q_OBJECT
public:
    explicit EmailListToolbar(std::shared_ptr<EmailListState> state, QWidget *parent = nullptr);

private:
    IconButton *add(QHBoxLayout *layout, const QString &symbol, const QString &help);
    void render();
    void showFilters();

    std::shared_ptr<EmailListState> m_state;
    Spinner *m_scan;
    IconButton *m_archive, *m_trash, *m_move, *m_filter;
};
