#pragma once

#include <QObject>

#include <memory>
#include <vector>

class QKeyEvent;

/// Takes the keys of the editor that the page does not know, and keeps those that edit text from the menus.
class EditorInput final : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// The widget that gets the input is a child of the web view, which makes a new one now and then: all are watched.
    void watch(QObject *widget);
    /// Keeps what is typed from now on for a page that is not there yet.
    void hold() { m_isHolding = true; }
    /// Gives what was kept to `receiver`, and keeps nothing more.
    void release(QObject *receiver);
    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void linkRequested();
    void toolbarRequested();
    void plainPasteRequested();

private:
    bool handleKey(const QKeyEvent &event);

    bool m_isHolding = false;
    std::vector<std::unique_ptr<QEvent>> m_held;
};
