#include "compose/screens/EditorInput.h"

#include <QChildEvent>
#include <QCoreApplication>
#include <QKeyEvent>

#include <algorithm>
#include <utility>

namespace {

const QKeySequence linkKey(Qt::CTRL | Qt::Key_K);
const QKeySequence plainPasteKey(Qt::CTRL | Qt::SHIFT | Qt::Key_V);
const QKeySequence toolbarKey(Qt::ALT | Qt::Key_F10);

bool editsText(const QKeyEvent &event) {
    using enum QKeySequence::StandardKey;
    static constexpr QKeySequence::StandardKey standardKeys[] = {Undo, Redo, Cut, Copy, Paste, SelectAll};
    static const QKeySequence keys[] = {linkKey,
                                        plainPasteKey,
                                        toolbarKey,
                                        QKeySequence(Qt::CTRL | Qt::Key_B),
                                        QKeySequence(Qt::CTRL | Qt::Key_I),
                                        QKeySequence(Qt::CTRL | Qt::Key_U),
                                        QKeySequence(Qt::CTRL | Qt::Key_BracketLeft),
                                        QKeySequence(Qt::CTRL | Qt::Key_BracketRight)};
    return std::ranges::any_of(standardKeys, [&](auto key) { return event.matches(key); }) ||
           std::ranges::find(keys, QKeySequence(event.keyCombination())) != std::end(keys);
}

bool isTyped(const QEvent &event) {
    static constexpr int leavingKeys[] = {Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Escape};
    if (event.type() == QEvent::InputMethod)
        return true;
    const bool isKey = event.type() == QEvent::KeyPress || event.type() == QEvent::KeyRelease;
    return isKey && !std::ranges::count(leavingKeys, static_cast<const QKeyEvent &>(event).key());
}

} // namespace

void EditorInput::release(QObject *receiver) {
    m_isHolding = false;
    for (const auto &event : std::exchange(m_held, {}))
        QCoreApplication::sendEvent(receiver, event.get());
}

void EditorInput::watch(QObject *widget) {
    widget->installEventFilter(this);
    for (auto *child : widget->children())
        if (child->isWidgetType())
            watch(child);
}

bool EditorInput::eventFilter(QObject *watched, QEvent *event) {
    if (m_isHolding && isTyped(*event)) {
        m_held.emplace_back(event->clone());
        return true;
    }
    switch (event->type()) {
    case QEvent::ChildAdded:
        watch(static_cast<QChildEvent *>(event)->child());
        return false;
    case QEvent::ShortcutOverride:
        if (!editsText(*static_cast<QKeyEvent *>(event)))
            return false;
        event->accept();
        return true;
    case QEvent::KeyPress:
        return handleKey(*static_cast<QKeyEvent *>(event));
    default:
        return QObject::eventFilter(watched, event);
    }
}

bool EditorInput::handleKey(const QKeyEvent &event) {
    const QKeySequence key(event.keyCombination());
    if (key == linkKey)
        Q_EMIT linkRequested();
    else if (key == toolbarKey)
        Q_EMIT toolbarRequested();
    else if (key == plainPasteKey)
        Q_EMIT plainPasteRequested();
    else
        return false;
    return true;
}
