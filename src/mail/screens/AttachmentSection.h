#pragma once

#include "mail/AttachmentDownloads.h"
#include "mail/EmailDetailState.h"

#include <QWidget>

class LinkButton;
class QVBoxLayout;
class SectionHeading;

/// The attachments of the message on show: a heading and one row each. Hidden when there are none. Brings "Save All"
/// to the message screen, whose toast also tells what went wrong.
class AttachmentSection final : public QWidget {
    Q_OBJECT
public:
    AttachmentSection(std::shared_ptr<AppState> appState, std::shared_ptr<EmailDetailState> state,
                      QWidget *parent = nullptr);

    /// For the screen's `DownloadLine`.
    const std::shared_ptr<AttachmentDownloads> &downloads() const { return m_downloads; }

private:
    void provideSaveAll();
    void answerRequests();
    void render();
    void makeRows();

    std::shared_ptr<AppState> m_appState;
    std::shared_ptr<EmailDetailState> m_state;
    std::shared_ptr<AttachmentDownloads> m_downloads;
    std::optional<EmailWindowRef> m_message;
    std::vector<EmailAttachment> m_attachments;
    SectionHeading *m_heading;
    LinkButton *m_downloadAll;
    QWidget *m_rows = nullptr;
    QVBoxLayout *m_layout;
};
