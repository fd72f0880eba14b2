#include "mail/screens/AttachmentSection.h"

#include "mail/screens/AttachmentDragView.h"
#include "mail/screens/AttachmentSavePanel.h"
#include "mail/screens/MacAttachmentPreview.h"
#include "ui/screens/Buttons.h"
#include "ui/screens/Card.h"

#include <QHBoxLayout>
#include <QPointer>

using namespace Qt::StringLiterals;

AttachmentSection::AttachmentSection(std::shared_ptr<AppState> appState, std::shared_ptr<EmailDetailState> state,
                                     QWidget *parent)
    : QWidget(parent)
    , m_appState(std::move(appState))
    , m_state(std::move(state))
    , m_downloads(AttachmentDownloads::make(m_appState))
    , m_heading(new SectionHeading({}))
    , m_downloadAll(new LinkButton(u"Download All"_s))
    , m_layout(new QVBoxLayout(this)) {
    auto *heading = new QHBoxLayout;
    heading->addWidget(m_heading);
    heading->addStretch(1);
    heading->addWidget(m_downloadAll);
    m_layout->setContentsMargins(20, 12, 20, 12);
    m_layout->setSpacing(8);
    m_layout->addLayout(heading);

    hide();
    provideSaveAll();
    answerRequests();
    connect(m_downloadAll, &LinkButton::clicked, m_state.get(), [this] { m_state->saveAllAttachments(); });
    observe(m_state.get(), this, &AttachmentSection::render);
}

void AttachmentSection::provideSaveAll() {
    m_state->saveAllAttachments = [state = m_state.get(), downloads = m_downloads] {
        if (const auto message = state->reference.get())
            downloads->saveAll(*message);
    };
}

void AttachmentSection::answerRequests() {
    // What a download leads to does not depend on this screen being still there when it ends.
    const std::weak_ptr<EmailDetailState> state = m_state;
    const QPointer<QWidget> screen = this;
    auto *downloads = m_downloads.get();
    connect(downloads, &AttachmentDownloads::failed, downloads, [state](const QString &text) {
        if (const auto shown = state.lock())
            shown->spamToast = ToastMessage(text, ToastType::error);
    });
    connect(downloads, &AttachmentDownloads::savePanelRequested, downloads,
            [screen](const QString &filename, const QByteArray &bytes) {
                showSavePanel(screen ? screen->window() : nullptr, filename, bytes);
            });
    connect(downloads, &AttachmentDownloads::previewRequested, downloads,
            [screen, downloads, appState = m_appState](const QString &filename, const QString &mime,
                                                       const QByteArray &bytes) {
                MacAttachmentPreview::open({filename, mime, bytes}, appState, screen ? screen->screen() : nullptr,
                                           [downloads = downloads->shared_from_this()](const QString &text) {
                                               Q_EMIT downloads->failed(text);
                                           });
            });
}

void AttachmentSection::render() {
    auto attachments = m_state->shownAttachments();
    const auto &message = m_state->reference.get();
    if (message == m_message && attachments == m_attachments)
        return;
    m_message = message;
    m_attachments = std::move(attachments);
    const auto count = m_attachments.size();
    m_heading->setText(QString::number(count) + (count >= 2 ? u" Attachments"_s : u" Attachment"_s));
    m_downloadAll->setVisible(count >= 2);
    makeRows();
    setVisible(count > 0);
}

void AttachmentSection::makeRows() {
    delete m_rows;
    m_rows = new QWidget;
    auto *rows = new QVBoxLayout(m_rows);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(6);
    if (m_message)
        for (const auto &attachment : m_attachments)
            rows->addWidget(new AttachmentDragView(m_downloads->row(*m_message, attachment)));
    m_layout->addWidget(m_rows);
}
