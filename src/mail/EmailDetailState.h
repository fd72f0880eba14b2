#pragma once

#include "app/AppState.h"
#include "mail/EmailDetailViewModel.h"
#include "mail/EmailWindowRef.h"
#include "ui/ToastMessage.h"
#include "ui/ViewTexts.h"

/// What the message screen decides: which of its contents shows, the texts of the header, and copying.
class EmailDetailState : public ObservableObject, public std::enable_shared_from_this<EmailDetailState> {
    Q_OBJECT
public:
    enum class Content { nothingSelected, loading, moved, failure, message };
    enum class Body { none, html, text };

    static std::shared_ptr<EmailDetailState> make(std::shared_ptr<AppState> appState);

    const std::shared_ptr<EmailDetailViewModel> viewModel = std::make_shared<EmailDetailViewModel>();

    /// The message on show; `folder` is the real folder path.
    Published<std::optional<EmailWindowRef>> reference{this};
    Published<bool> messageMoved{this, false};
    Published<std::optional<ToastMessage>> copiedToast{this};

    /// Shows this message, or none. The same one again does nothing.
    void show(const std::optional<EmailWindowRef> &wanted);
    void retry();

    Content content() const;
    Body body() const;
    /// What to show where there is no message.
    ViewTexts placeholder() const;
    bool offersImages() const;
    void showImages();

    QString subjectText() const;
    QString senderName() const;
    QString senderAddress() const;
    QString dateText() const;
    /// The whole date, for a person who wants to know exactly.
    QString fullDateText() const;

    void copySubject();
    void copyAddress(const QString &address);

Q_SIGNALS:
    /// Text for the clipboard.
    void copyRequested(const QString &text);

private:
    explicit EmailDetailState(std::shared_ptr<AppState> appState);
    const EmailAddress *sender() const;
    void copy(const QString &text, const QString &confirmation);

    std::shared_ptr<AppState> m_appState;
};
