#pragma once

#include "mail/EmailListDialogs.h"
#include "mail/EmailListState.h"

#include <QPointer>

class Sheet;
class ToastPresenter;

/// Shows the dialogs, sheets and toasts that a message list asks for, over its screen.
class EmailListSheets final : public QObject {
    Q_OBJECT
public:
    EmailListSheets(std::shared_ptr<EmailListState> state, QWidget *screen);

private:
    void render();
    void renderToasts();
    void ask(Published<bool> &isWanted, const EmailListDialog &dialog);
    void showSource(const QString &source);
    void copySource(const QString &source);

    std::shared_ptr<EmailListState> m_state;
    QWidget *m_screen;
    /// The one that is up.
    QPointer<Sheet> m_sheet;
    ToastPresenter *m_spamToasts, *m_copiedToasts;
};
