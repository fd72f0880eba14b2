#include "mail/screens/MacAttachmentPreview.h"

#include "mail/AttachmentPreviewFolder.h"
#include "platform/Tasks.h"

#include <QCoreApplication>
#include <QGuiApplication>

using namespace Qt::StringLiterals;

namespace {

/// Where the desktop leaves room for windows.
std::optional<QRect> roomOn(QScreen *screen) {
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    return screen ? std::optional(screen->availableGeometry()) : std::nullopt;
}

void show(QWidget *window, QScreen *screen) {
    const auto room = roomOn(screen);
    window->resize(attachmentPreviewSize(room ? std::optional(room->size()) : std::nullopt));
    if (room)
        window->move(room->center() - window->rect().center());
    window->show();
    window->raise();
    window->activateWindow();
}

QCoro::Task<> storeAndShow(ReceivedFile file, std::shared_ptr<AppState> appState, QPointer<QScreen> screen,
                           std::function<void(const QString &)> failure) {
    QString reason;
    try {
        const auto path = co_await AttachmentPreviewFolder::shared().store(file.filename, file.bytes);
        // The session may have ended meanwhile.
        if (!appState->isAuthenticated)
            co_return;
        auto preview = std::make_unique<MacAttachmentPreview>(path, file.mime, screen);
        preview->closeWith(appState.get());
        const auto id = preview->id;
        openPreviews().emplace(id, std::move(preview));
        co_return;
    } catch (...) {
        reason = errorText(std::current_exception());
    }
    failure(u"Could not preview attachment: "_s + reason);
}

} // namespace

std::map<QUuid, std::unique_ptr<MacAttachmentPreview>> &openPreviews() {
    static std::map<QUuid, std::unique_ptr<MacAttachmentPreview>> previews;
    // Windows must go before the application object does.
    static const bool clearing = [] {
        qAddPostRoutine([] { previews.clear(); });
        return true;
    }();
    Q_UNUSED(clearing)
    return previews;
}

void MacAttachmentPreview::open(ReceivedFile file, std::shared_ptr<AppState> appState, QPointer<QScreen> screen,
                                std::function<void(const QString &)> failure) {
    launch(storeAndShow(std::move(file), std::move(appState), screen, std::move(failure)));
}

MacAttachmentPreview::MacAttachmentPreview(const QString &path, const QString &mime, QScreen *screen)
    : fileURL(QUrl::fromLocalFile(path))
    , m_preview(new AttachmentPreviewWindow(fileURL, mime)) {
    AttachmentPreviewFolder::shared().keep(path);
    connect(m_preview, &AttachmentPreviewWindow::closed, this, &MacAttachmentPreview::forget);
    show(m_preview, screen);
}

MacAttachmentPreview::~MacAttachmentPreview() {
    AttachmentPreviewFolder::shared().release(fileURL.toLocalFile());
    delete m_preview;
}

void MacAttachmentPreview::closeWith(const AppState *appState) {
    connect(appState, &ObservableObject::changed, m_preview, [appState, window = m_preview] {
        if (!appState->isAuthenticated)
            window->close();
    });
    connect(appState, &QObject::destroyed, m_preview, &QWidget::close);
}

void MacAttachmentPreview::forget() {
    // The window deletes itself when its event has been handled.
    m_preview = nullptr;
    QMetaObject::invokeMethod(
        qApp, [id = id] { openPreviews().erase(id); }, Qt::QueuedConnection);
}
