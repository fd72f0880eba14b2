#pragma once

#include "mail/EmailDetailState.h"

#include <QWidget>

class IconButton;
class Spinner;

/// The actions on the message above it, and the way back to the message below.
class EmailToolbar final : public QWidget {
    Q_OBJECT
public:
    explicit EmailToolbar(std::shared_ptr<EmailDetailState> state, QWidget *parent = nullptr);

    void render();

private:
    IconButton *add(const QString &symbol, const QString &name, const QString &help);
    IconButton *addAction(const QString &symbol, const QString &name, const QString &help, MacMailAction action);
    void showMenu();

    std::shared_ptr<EmailDetailState> m_state;
    IconButton *m_back, *m_star, *m_more;
    QList<IconButton *> m_group;
    Spinner *m_checking;
};
