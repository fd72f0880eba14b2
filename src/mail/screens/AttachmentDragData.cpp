#include "mail/screens/AttachmentDragData.h"

#include "mail/AttachmentPreviewFolder.h"
#include "platform/Clock.h"
#include "platform/Tasks.h"

#include <QEventLoop>
#include <QGuiApplication>
#include <QPointer>

using namespace Qt::StringLiterals;

namespace {

constexpr auto uriList = "text/uri-list"_L1;
/// A place that has waited longer than this has given the drop up.
constexpr auto longestWait = std::chrono::minutes(2);

struct Delivery {
    std::optional<QString> path;
    bool hasEnded = false;
    QPointer<QEventLoop> waiting;
};

QCoro::Task<> deliver(std::shared_ptr<AttachmentFilePromise> promise, std::shared_ptr<Delivery> delivery) {
    try {
        const auto folder = co_await AttachmentPreviewFolder::shared().makeFolder();
        const auto path = folder + u'/' + promise->fileName();
        co_await promise->write(path);
        delivery->path = path;
    } catch (const std::exception &) {
        // The promise has told the person.
    }
    delivery->hasEnded = true;
    if (delivery->waiting)
        delivery->waiting->quit();
}

} // namespace

QStringList AttachmentDragData::formats() const {
    return {uriList};
}

bool AttachmentDragData::hasFormat(const QString &format) const {
    return format == uriList;
}

QVariant AttachmentDragData::retrieveData(const QString &format, QMetaType) const {
    if (format != uriList || QGuiApplication::mouseButtons() != Qt::NoButton)
        return {};
    if (!std::exchange(m_fetched, true))
        fetch();
    return m_url.isValid() ? QVariant(QList<QVariant>{m_url}) : QVariant();
}

void AttachmentDragData::fetch() const {
    const auto delivery = std::make_shared<Delivery>();
    launch(deliver(m_promise, delivery));
    if (!delivery->hasEnded) {
        // The window system wants the answer when this function returns, so this one place waits. Nothing that a person
        // does is handled meanwhile, and painting goes on.
        QEventLoop loop;
        delivery->waiting = &loop;
        const auto limit = Clock::shared().after(longestWait, [&loop] { loop.quit(); });
        loop.exec(QEventLoop::ExcludeUserInputEvents);
    }
    if (delivery->path)
        m_url = QUrl::fromLocalFile(*delivery->path);
}
