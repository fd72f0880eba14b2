#include "app/screens/QuitAfterSending.h"

#include "compose/SendOutcomes.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>

namespace {

bool isShownWindow(const QWidget *window) {
    return window->isVisible() && (window->windowType() == Qt::Window || window->windowType() == Qt::Dialog);
}

} // namespace

QuitAfterSending::QuitAfterSending(const SendOutcomes &outcomes, QObject *parent)
    : QObject(parent)
    , m_outcomes(outcomes) {
    // Every way to quit comes by as this event, before any window is closed.
    qApp->installEventFilter(this);
    // In the next turn, as the end of a send is told in the middle of it.
    connect(&outcomes, &SendOutcomes::sendEnded, this, &QuitAfterSending::sendEnded, Qt::QueuedConnection);
}

bool QuitAfterSending::eventFilter(QObject *watched, QEvent *event) {
    if (watched != qApp || event->type() != QEvent::Quit || !m_outcomes.isSending())
        return QObject::eventFilter(watched, event);
    event->ignore();
    wait();
    return true;
}

void QuitAfterSending::wait() {
    m_isWaiting = true;
    for (auto *window : QApplication::topLevelWidgets()) {
        if (!isShownWindow(window))
            continue;
        m_hidden.emplace_back(window);
        window->hide();
    }
}

void QuitAfterSending::sendEnded(bool isSent) {
    if (!m_isWaiting)
        return;
    if (!isSent)
        Q_EMIT failed();
    else if (!m_outcomes.isSending())
        QCoreApplication::quit();
}

void QuitAfterSending::cancel() {
    m_isWaiting = false;
    for (const auto &window : std::exchange(m_hidden, {}))
        if (window)
            window->show();
}
