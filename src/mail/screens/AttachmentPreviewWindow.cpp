#include "mail/screens/AttachmentPreviewWindow.h"

#include "mail/screens/AttachmentPagesView.h"
#include "mail/screens/AttachmentSavePanel.h"
#include "mail/screens/AttachmentTextView.h"
#include "platform/PreviewReader.h"
#include "platform/desktop/FileSharing.h"
#include "ui/screens/Buttons.h"
#include "ui/screens/EmptyStateView.h"
#include "ui/screens/Spinner.h"

#include <QAction>
#include <QHBoxLayout>
#include <QStackedWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize largestWindow(840, 800);
constexpr QSize smallestWindow(420, 320);
constexpr QSize sizeWithoutScreen(1020, 765);
constexpr double partOfScreen = 0.85;

IconButton *makeButton(const QString &id, const QString &symbol, const QString &label, const QString &help) {
    auto *button = new IconButton(symbol, help);
    button->setObjectName(id);
    button->setAccessibleName(label);
    return button;
}

} // namespace

QSize attachmentPreviewSize(const std::optional<QSize> &available) {
    const auto wanted = available ? *available * partOfScreen : sizeWithoutScreen;
    return wanted.boundedTo(largestWindow).expandedTo(smallestWindow);
}

AttachmentPreviewWindow::AttachmentPreviewWindow(const QUrl &file, const QString &mime)
    : m_file(file)
    , m_content(new QStackedWidget)
    , m_failure(new EmptyStateView) {
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(file.fileName());
    setMinimumSize(smallestWindow);
    auto *loading = new QWidget;
    (new QVBoxLayout(loading))->addWidget(new Spinner(28), 0, Qt::AlignCenter);
    m_content->addWidget(loading);
    m_content->addWidget(m_failure);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(makeToolbar());
    layout->addWidget(m_content, 1);
    addKeys();
    if (mime.startsWith("text/"_L1))
        showText();
    else
        showPages(mime);
}

QWidget *AttachmentPreviewWindow::makeToolbar() {
    auto *toolbar = new QWidget;
    toolbar->setObjectName(u"Corvanite.AttachmentPreview"_s);
    auto *saveButton = makeButton(u"Corvanite.Attachment.Save"_s, u"square.and.arrow.down"_s, u"Save Attachment"_s,
                                  u"Save Attachment… (⌘S)"_s);
    auto *shareButton =
        makeButton(u"Corvanite.Attachment.Share"_s, u"square.and.arrow.up"_s, u"Share"_s, u"Share Attachment"_s);
    connect(saveButton, &IconButton::clicked, this, &AttachmentPreviewWindow::save);
    connect(shareButton, &IconButton::clicked, this, &AttachmentPreviewWindow::share);
    auto *layout = new QHBoxLayout(toolbar);
    layout->setContentsMargins(12, 6, 12, 6);
    layout->addStretch(1);
    layout->addWidget(saveButton);
    layout->addWidget(shareButton);
    return toolbar;
}

void AttachmentPreviewWindow::addKeys() {
    const auto add = [this](const QKeySequence &keys, auto slot) {
        auto *action = new QAction(this);
        action->setShortcut(keys);
        connect(action, &QAction::triggered, this, slot);
        addAction(action);
    };
    add(Qt::Key_Escape, &QWidget::close);
    add(QKeySequence(Qt::CTRL | Qt::Key_W), &QWidget::close);
    add(QKeySequence(Qt::CTRL | Qt::Key_S), &AttachmentPreviewWindow::save);
}

void AttachmentPreviewWindow::showText() {
    auto *view = new AttachmentTextView;
    connect(view, &AttachmentTextView::failed, this, &AttachmentPreviewWindow::showFailure);
    connect(view, &AttachmentTextView::loaded, this, [this, view] {
        m_content->setCurrentWidget(view);
        view->setFocus();
    });
    m_content->addWidget(view);
    view->load(m_file.toLocalFile());
}

void AttachmentPreviewWindow::showPages(const QString &mime) {
    auto *reader = new PreviewReader(m_file.toLocalFile(), mime, this);
    const auto fit = mime.startsWith("image/"_L1) ? AttachmentPagesView::Fit::page : AttachmentPagesView::Fit::width;
    auto *view = new AttachmentPagesView(reader, fit);
    connect(reader, &PreviewReader::failed, this, &AttachmentPreviewWindow::showFailure);
    connect(reader, &PreviewReader::opened, this, [this, view] {
        m_content->setCurrentWidget(view);
        view->setFocus();
    });
    m_content->addWidget(view);
}

void AttachmentPreviewWindow::showFailure() {
    m_failure->setTexts({u"doc"_s, u"This file could not be shown."_s, QString()});
    m_content->setCurrentWidget(m_failure);
}

void AttachmentPreviewWindow::save() {
    showSavePanelForFile(this, m_file.toLocalFile());
}

void AttachmentPreviewWindow::share() {
    shareFile(m_file.toLocalFile(), this);
}

void AttachmentPreviewWindow::closeEvent(QCloseEvent *event) {
    QWidget::closeEvent(event);
    Q_EMIT closed();
}
