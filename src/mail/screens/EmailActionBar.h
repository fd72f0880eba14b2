#pragma once

#include "mail/EmailDetailState.h"

#include <QWidget>

/// What to do with a message once it has been read: answer it or pass it on.
class EmailActionBar final : public QWidget {
    Q_OBJECT
public:
    explicit EmailActionBar(const std::shared_ptr<EmailDetailState> &state, QWidget *parent = nullptr);
};
