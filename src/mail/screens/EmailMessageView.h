#pragma once

#include "mail/EmailDetailState.h"
#include "mail/screens/ColumnScrollArea.h"

class AttachmentDownloads;
class AttachmentSection;
class EmailBodyView;
class LinkTargetLabel;

/// A message from top to bottom in one scrolling column: header, image bar, body, attachments, related messages and
/// what to do with it.
class EmailMessageView final : public ColumnScrollArea {
    Q_OBJECT
public:
    EmailMessageView(std::shared_ptr<AppState> appState, std::shared_ptr<EmailDetailState> state,
                     QWidget *parent = nullptr);
    ~EmailMessageView() override;

    void render();
    /// Lets go of the message when it is no longer on show.
    void clear();
    void focusBody();
    /// Scrolls by as much as can be seen.
    void page(bool down);
    /// What is being downloaded from the message.
    std::shared_ptr<AttachmentDownloads> downloads() const;

Q_SIGNALS:
    /// The HTML of the message on show is on the screen.
    void bodyPainted();

private:
    QWidget *makeColumn();
    QWidget *makeImageBar();
    void showImages();
    void forgetLinkTarget(const QWidget *focused);

    std::shared_ptr<EmailDetailState> m_state;
    QWidget *m_imageBar;
    EmailBodyView *m_body;
    AttachmentSection *m_attachments;
    LinkTargetLabel *m_linkTarget;
    /// The message whose top was shown.
    std::optional<EmailWindowRef> m_shown;
};
