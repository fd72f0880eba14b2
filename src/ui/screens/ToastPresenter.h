#pragma once

#include "platform/Clock.h"
#include "ui/ToastMessage.h"

#include <QObject>
#include <QPointer>
#include <optional>

class ToastView;
class QWidget;

/// Shows the toast of one screen over it. A toast set while another is shown takes its place, and the time of the
/// first goes on running for it.
class ToastPresenter : public QObject {
    Q_OBJECT
public:
    explicit ToastPresenter(QWidget *host);

    void setToast(const std::optional<ToastMessage> &toast);
    const std::optional<ToastMessage> &toast() const { return m_toast; }

Q_SIGNALS:
    /// The time is over: the screen's field is to become absent.
    void expired();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void expire();
    void watchWindow();

    QWidget *m_host;
    QPointer<QWidget> m_window;
    ToastView *m_view = nullptr;
    std::optional<ToastMessage> m_toast;
    /// The last toast whose time was over, in case the screen still holds it.
    QUuid m_expiredID;
    ScheduledWorkPtr m_timer;
};
