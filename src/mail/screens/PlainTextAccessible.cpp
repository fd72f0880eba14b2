#include "mail/screens/PlainTextAccessible.h"

#include "mail/screens/PlainTextView.h"

#include <mutex>

namespace {

/// As much as a value may have to be copied at once; the rest is read through the text interface.
constexpr qsizetype longestValue = 20'000;

QAccessibleInterface *make(const QString &, QObject *object) {
    auto *view = qobject_cast<PlainTextView *>(object);
    return view ? new PlainTextAccessible(view) : nullptr;
}

} // namespace

PlainTextAccessible::PlainTextAccessible(PlainTextView *view)
    : QAccessibleWidget(view, QAccessible::EditableText) {}

void PlainTextAccessible::install() {
    static std::once_flag installed;
    std::call_once(installed, [] { QAccessible::installFactory(make); });
}

void *PlainTextAccessible::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::TextInterface)
        return static_cast<QAccessibleTextInterface *>(this);
    return QAccessibleWidget::interface_cast(type);
}

QString PlainTextAccessible::text(QAccessible::Text kind) const {
    return kind == QAccessible::Value ? view()->text().left(longestValue) : QAccessibleWidget::text(kind);
}

QAccessible::State PlainTextAccessible::state() const {
    auto result = QAccessibleWidget::state();
    result.readOnly = true;
    result.multiLine = true;
    result.selectableText = true;
    return result;
}

void PlainTextAccessible::selection(int, int *start, int *end) const {
    const auto [from, to] = std::minmax({view()->selectionAnchor(), view()->selectionCursor()});
    *start = int(from);
    *end = int(to);
}

int PlainTextAccessible::selectionCount() const {
    return view()->selectionAnchor() == view()->selectionCursor() ? 0 : 1;
}

void PlainTextAccessible::addSelection(int start, int end) {
    setSelection(0, start, end);
}

void PlainTextAccessible::removeSelection(int) {
    setCursorPosition(cursorPosition());
}

void PlainTextAccessible::setSelection(int, int start, int end) {
    view()->select(std::clamp(start, 0, characterCount()), std::clamp(end, 0, characterCount()));
}

int PlainTextAccessible::cursorPosition() const {
    return int(view()->selectionCursor());
}

void PlainTextAccessible::setCursorPosition(int position) {
    setSelection(0, position, position);
}

QString PlainTextAccessible::text(int start, int end) const {
    return view()->text().mid(start, end - start);
}

int PlainTextAccessible::characterCount() const {
    return int(view()->text().size());
}

QRect PlainTextAccessible::characterRect(int offset) const {
    const auto place = view()->characterRect(offset);
    return {view()->mapToGlobal(place.topLeft()), place.size()};
}

int PlainTextAccessible::offsetAtPoint(const QPoint &point) const {
    return int(view()->positionAt(view()->mapFromGlobal(point)));
}

void PlainTextAccessible::scrollToSubstring(int start, int) {
    view()->scrollTo(start);
}

QString PlainTextAccessible::attributes(int, int *start, int *end) const {
    *start = 0;
    *end = characterCount();
    return {};
}

PlainTextView *PlainTextAccessible::view() const {
    return static_cast<PlainTextView *>(widget());
}
