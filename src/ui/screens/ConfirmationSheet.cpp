#include "ui/screens/ConfirmationSheet.h"

#include "ui/screens/ThemeLabel.h"

#include <QVBoxLayout>

namespace {

constexpr int textWidth = 400;

} // namespace

ConfirmationSheet::ConfirmationSheet(const QString &title, const QString &message, QWidget *parent)
    : Sheet(title, {}, parent) {
    setAttribute(Qt::WA_DeleteOnClose);
    if (!message.isEmpty()) {
        auto *words = new ThemeLabel(message, TextStyle::body, TextRole::secondary);
        words->setWordWrap(true);
        words->setFixedWidth(textWidth);
        words->setMinimumHeight(words->heightForWidth(textWidth));
        column()->addWidget(words);
    }
    auto *cancel = addButton(tr("Cancel"));
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    cancel->setFocus();
}

// What Return would do must be seen before it is pressed.
void ConfirmationSheet::showEvent(QShowEvent *event) {
    Sheet::showEvent(event);
    setAttribute(Qt::WA_KeyboardFocusChange);
}

QPushButton *ConfirmationSheet::makeChoice(const QString &text, ButtonRole role) {
    auto *button = addButton(text, role);
    connect(button, &QPushButton::clicked, this, &QDialog::accept);
    return button;
}
