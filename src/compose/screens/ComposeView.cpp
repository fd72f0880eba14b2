#include "compose/screens/ComposeView.h"

#include "compose/screens/AIWriteSheet.h"
#include "compose/screens/ComposeAttachmentList.h"
#include "compose/screens/ComposeBottomBar.h"
#include "compose/screens/ComposeEditorToolbar.h"
#include "compose/screens/ComposeEditorView.h"
#include "compose/screens/ComposeFields.h"
#include "compose/screens/DropFrame.h"
#include "compose/screens/EditorWebViewRef.h"
#include "compose/screens/TemplatePickerSheet.h"
#include "platform/Tasks.h"
#include "ui/screens/Buttons.h"
#include "ui/screens/ClampedLabel.h"
#include "ui/screens/ErrorBanner.h"
#include "ui/screens/LayoutTabOrder.h"

#include <QDir>
#include <QDropEvent>
#include <QFileDialog>
#include <QMimeData>
#include <QShortcut>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int margin = 20;
constexpr int leastTextHeight = 120;

} // namespace

ComposeView::ComposeView(std::shared_ptr<ComposeState> state, FocusedActions &actions, QWidget *parent)
    : MailThemeBackground(true, parent)
    , m_state(std::move(state))
    , m_actions(actions)
    , m_editorRef(std::make_shared<EditorWebViewRef>())
    , m_title(new ClampedLabel(1, TextStyle::title3))
    , m_fields(new ComposeFields(m_state))
    , m_error(new ErrorBanner)
    , m_editor(new ComposeEditorView(m_editorRef))
    , m_dropFrame(new DropFrame(this)) {
    setAcceptDrops(true);
    m_editor->setMinimumHeight(leastTextHeight);
    new LayoutTabOrder(this);
    auto *bottomBar = new ComposeBottomBar(m_state);
    layOut(new ComposeEditorToolbar(m_editorRef), new ComposeAttachmentList(m_state), bottomBar);
    connect(bottomBar, &ComposeBottomBar::sendRequested, m_editor, &ComposeEditorView::focusEditor);
    connect(bottomBar, &ComposeBottomBar::sendRequested, this, &ComposeView::send);
    connect(bottomBar, &ComposeBottomBar::ccRequested, m_fields, &ComposeFields::showCc);
    connect(bottomBar, &ComposeBottomBar::bccRequested, m_fields, &ComposeFields::showBcc);
    connect(bottomBar, &ComposeBottomBar::discardRequested, this, &ComposeView::giveUp);
    connect(m_state.get(), &ComposeState::dismissed, this, &ComposeView::dismissed);
    connect(m_state.get(), &ComposeState::filled, this, &ComposeView::beginToWrite, Qt::QueuedConnection);
    connectEditor();
    addShortcuts();
    m_state->readEditorWith([this](auto done) { m_editor->fetchContent(std::move(done)); });
    m_state->start();
    observe(m_state.get(), this, &ComposeView::render);
    m_fields->focusMissing();
}

ComposeView::~ComposeView() {
    // What was told to be sent is sent, with the text that was reported last.
    if (m_awaitsText)
        launch(m_state->send());
    m_actions.publishCompose(std::nullopt);
    m_state->close();
}

QWidget *ComposeView::makeHeader() {
    auto *header = new QWidget;
    auto *row = new QHBoxLayout(header);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(m_title, 1);
    auto *close = new IconButton(u"xmark.circle.fill"_s, tr("Close (Esc)"));
    connect(close, &IconButton::clicked, this, &ComposeView::giveUp);
    row->addWidget(close);
    return header;
}

void ComposeView::layOut(QWidget *toolbar, QWidget *attachments, QWidget *bottomBar) {
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(margin, 14, margin, 14);
    column->setSpacing(10);
    column->addWidget(makeHeader());
    for (auto *part : std::initializer_list<QWidget *>{m_fields, m_error, attachments, toolbar})
        column->addWidget(part);
    column->addWidget(m_editor, 1);
    column->addWidget(bottomBar);
}

void ComposeView::connectEditor() {
    connect(m_editor, &ComposeEditorView::htmlContentChanged, m_state.get(), &ComposeState::editorChanged);
    connect(m_editor, &ComposeEditorView::attachFiles, m_state.get(), &ComposeState::attachFiles);
    connect(m_editor, &ComposeEditorView::filesHeld, m_dropFrame, &QWidget::setVisible);
    connect(m_fields, &ComposeFields::textRequested, m_editor, &ComposeEditorView::focusEditor);
}

void ComposeView::addShortcuts() {
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &ComposeView::giveUp);
    connect(new QShortcut(Qt::CTRL | Qt::Key_Return, this), &QShortcut::activated, this, &ComposeView::send);
}

// Where the keyboard is wanted first, unless the person has begun elsewhere.
void ComposeView::beginToWrite() {
    const bool isUntouched = !std::exchange(m_hasBegun, true) && m_fields->isUntouched();
    if (isUntouched && !m_fields->focusMissing())
        m_editor->focusEditor();
}

void ComposeView::giveUp() {
    if (m_state->isKept())
        m_state->withEditorText([this](ComposeState &) { Q_EMIT dismissed(); });
    else
        Q_EMIT dismissed();
}

void ComposeView::send() {
    if (!m_state->canSend() || std::exchange(m_awaitsText, true))
        return;
    m_state->withEditorText([this](ComposeState &state) {
        m_awaitsText = false;
        m_fields->focusMissing();
        launch(state.send());
    });
}

void ComposeView::render() {
    m_title->setText(m_state->title());
    Q_EMIT titleChanged(m_state->title());
    m_error->setError(m_state->viewModel->errorMessage);
    m_editor->setInitialContent(m_state->initialEditorContent);
    publishActions();
    renderSheets();
}

void ComposeView::publishActions() {
    const bool canSend = m_state->canSend();
    if (m_actions.compose() && m_actions.compose()->canSend == canSend)
        return;
    m_actions.publishCompose(MacComposeActions{.canSend = canSend,
                                               .send = [this] { send(); },
                                               .attach = [state = m_state] { state->showAttachmentPicker = true; }});
}

void ComposeView::renderSheets() {
    if (m_state->showTemplatePicker && !m_templates) {
        m_templates = new TemplatePickerSheet(m_state, this);
        m_templates->open();
    }
    if (m_state->showAIPrompt && !m_aiSheet) {
        m_aiSheet = new AIWriteSheet(m_state, this);
        m_aiSheet->open();
    }
    if (m_state->showAttachmentPicker && !std::exchange(m_showsPicker, true))
        showAttachmentPicker();
}

void ComposeView::showAttachmentPicker() {
    auto *picker = new QFileDialog(this, tr("Attach Files"), QDir::homePath());
    picker->setAttribute(Qt::WA_DeleteOnClose);
    picker->setFileMode(QFileDialog::ExistingFiles);
    connect(picker, &QFileDialog::filesSelected, m_state.get(), [this](const QStringList &paths) {
        QList<QUrl> urls;
        for (const auto &path : paths)
            urls.append(QUrl::fromLocalFile(path));
        m_state->attachFiles(urls);
    });
    connect(picker, &QDialog::finished, this, [this] {
        m_showsPicker = false;
        m_state->showAttachmentPicker = false;
    });
    picker->open();
}

// The narrower the screen, the more rows the toolbar has, of which the layout's own minimum knows nothing.
bool ComposeView::event(QEvent *event) {
    const bool isHandled = MailThemeBackground::event(event);
    if (event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest)
        setMinimumHeight(layout()->totalMinimumHeightForWidth(width()));
    return isHandled;
}

void ComposeView::dragEnterEvent(QDragEnterEvent *event) {
    if (!event->mimeData()->hasUrls())
        return;
    event->setDropAction(Qt::CopyAction);
    event->accept();
    m_dropFrame->show();
}

void ComposeView::dragLeaveEvent(QDragLeaveEvent *) {
    m_dropFrame->hide();
}

void ComposeView::dropEvent(QDropEvent *event) {
    m_dropFrame->hide();
    event->setDropAction(Qt::CopyAction);
    event->accept();
    m_state->attachFiles(event->mimeData()->urls());
}
