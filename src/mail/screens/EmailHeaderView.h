#pragma once

#include "mail/EmailDetailState.h"

#include <QWidget>

class ClampedLabel;
class FaviconAvatarView;
class FlowingAddresses;
class LinkButton;
class ThemeLabel;

/// The head of an opened message: subject, sender, date and recipients, each of which can be copied.
class EmailHeaderView final : public QWidget {
    Q_OBJECT
public:
    explicit EmailHeaderView(std::shared_ptr<EmailDetailState> state, QWidget *parent = nullptr);

private:
    /// The addresses of one kind behind a word such as "To:".
    struct Recipients {
        QWidget *row;
        FlowingAddresses *addresses;
    };

    QWidget *makeSender();
    Recipients makeRecipients(const QString &word);
    void showRecipients(const Recipients &recipients, const std::optional<std::vector<EmailAddress>> &addresses);
    void showSubjectMenu(const QPoint &place);
    void render();

    std::shared_ptr<EmailDetailState> m_state;
    ClampedLabel *m_subject;
    FaviconAvatarView *m_avatar;
    ClampedLabel *m_sender;
    ThemeLabel *m_date;
    LinkButton *m_address;
    Recipients m_to, m_cc;
};
