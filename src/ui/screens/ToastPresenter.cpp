#include "ui/screens/ToastPresenter.h"

#include "ui/screens/ToastView.h"

#include <QAccessible>
#include <QEvent>
#include <QWidget>

using namespace std::chrono_literals;

ToastPresenter::ToastPresenter(QWidget *host)
    : QObject(host)
    , m_host(host) {
    host->installEventFilter(this);
}

void ToastPresenter::setToast(const std::optional<ToastMessage> &toast) {
    if (toast == m_toast || (toast && toast->id == m_expiredID))
        return;
    const bool wasShown = m_toast.has_value();
    m_toast = toast;
    if (!toast) {
        m_timer.reset();
        m_view->vanish();
        return;
    }
    if (!m_view)
        m_view = new ToastView(m_host);
    m_view->setMessage(*toast);
    QAccessibleEvent alert(m_view, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
    if (wasShown)
        return;
    watchWindow();
    if (m_host->isVisible())
        m_view->appear();
    m_timer = Clock::shared().after(3s, [this] { expire(); });
}

void ToastPresenter::expire() {
    m_expiredID = m_toast->id;
    setToast(std::nullopt);
    Q_EMIT expired();
}

void ToastPresenter::watchWindow() {
    if (m_window == m_host->window())
        return;
    if (m_window)
        m_window->removeEventFilter(this);
    m_window = m_host->window();
    m_window->installEventFilter(this);
}

bool ToastPresenter::eventFilter(QObject *watched, QEvent *event) {
    if (!m_toast)
        return QObject::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::Move:
    case QEvent::Resize:
        m_view->follow();
        break;
    case QEvent::Hide:
        m_view->hide();
        break;
    case QEvent::Show:
        m_view->appear();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}
