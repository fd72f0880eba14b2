#pragma once

#include "ui/screens/Sheet.h"

#include <QPushButton>

/// Asks before something is done. Add the choices, then show it with `open()`; it offers
/// "Cancel" by itself, closes with any answer and then deletes itself.
class ConfirmationSheet : public Sheet {
    Q_OBJECT
public:
    /// `message` may be empty.
    ConfirmationSheet(const QString &title, const QString &message, QWidget *parent);

    template <typename Action> void addChoice(const QString &text, ButtonRole role, QObject *context, Action action) {
        connect(makeChoice(text, role), &QPushButton::clicked, context, std::move(action));
    }

protected:
    void showEvent(QShowEvent *event) override;

private:
    QPushButton *makeChoice(const QString &text, ButtonRole role);
};
