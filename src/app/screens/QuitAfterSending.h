#pragma once

#include <QObject>
#include <QPointer>
#include <vector>

class SendOutcomes;
class QWidget;

/// Lets the program end only once nothing is being sent any more. Asked to quit earlier, it hides the windows and quits
/// when the last message is out; if one could not be sent, the program goes on.
class QuitAfterSending final : public QObject {
    Q_OBJECT
public:
    explicit QuitAfterSending(const SendOutcomes &outcomes, QObject *parent = nullptr);

    /// Somebody wants the program after all: shows again what was hidden.
    void cancel();

Q_SIGNALS:
    /// A message could not be sent after the program was asked to quit.
    void failed();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void wait();
    void sendEnded(bool isSent);

    const SendOutcomes &m_outcomes;
    bool m_isWaiting = false;
    std::vector<QPointer<QWidget>> m_hidden;
};
