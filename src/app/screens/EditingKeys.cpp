#include "app/screens/EditingKeys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>
#include <algorithm>

namespace {

bool editsText(const QKeyEvent &event) {
    using enum QKeySequence::StandardKey;
    static constexpr QKeySequence::StandardKey keys[] = {DeleteStartOfWord, DeleteEndOfWord, DeleteEndOfLine,
                                                         DeleteCompleteLine, Delete};
    return std::ranges::any_of(keys, [&](auto key) { return event.matches(key); });
}

} // namespace

EditingKeys::EditingKeys(QObject *parent)
    : QObject(parent) {
    QCoreApplication::instance()->installEventFilter(this);
}

bool EditingKeys::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() != QEvent::ShortcutOverride)
        return false;
    const auto *field = QApplication::focusWidget();
    if (!field || field != watched || !field->testAttribute(Qt::WA_InputMethodEnabled) ||
        !editsText(*static_cast<QKeyEvent *>(event)))
        return false;
    event->accept();
    return true;
}
