#pragma once

#include <QAccessibleWidget>

class PlainTextView;

/// Lets assistive technology read the text of a message, however long it is, piece by piece.
class PlainTextAccessible final : public QAccessibleWidget, public QAccessibleTextInterface {
public:
    explicit PlainTextAccessible(PlainTextView *view);

    /// Makes the toolkit use this class for plain texts.
    static void install();

    void *interface_cast(QAccessible::InterfaceType type) override;
    QString text(QAccessible::Text kind) const override;
    QAccessible::State state() const override;

    void selection(int index, int *start, int *end) const override;
    int selectionCount() const override;
    void addSelection(int start, int end) override;
    void removeSelection(int index) override;
    void setSelection(int index, int start, int end) override;
    int cursorPosition() const override;
    void setCursorPosition(int position) override;

    QString text(int start, int end) const override;
    int characterCount() const override;
    QRect characterRect(int offset) const override;
    int offsetAtPoint(const QPoint &point) const override;
    void scrollToSubstring(int start, int end) override;
    QString attributes(int offset, int *start, int *end) const override;

private:
    PlainTextView *view() const;
};
