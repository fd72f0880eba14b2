#include "app/screens/KeyboardShortcutsSheet.h"

#include "ui/screens/ThemeLabel.h"

#include <QGridLayout>
#include <QKeySequence>
#include <QPushButton>

namespace {

struct Shortcut {
    QKeySequence keys;
    const char *effect;
};

const Shortcut shortcuts[] = {{Qt::Key_Up, QT_TR_NOOP("Previous message")},
                              {Qt::Key_Down, QT_TR_NOOP("Next message")},
                              {Qt::Key_Return, QT_TR_NOOP("Open the message in a window")},
                              {Qt::CTRL | Qt::Key_F, QT_TR_NOOP("Search")},
                              {Qt::CTRL | Qt::SHIFT | Qt::Key_N, QT_TR_NOOP("Get new mail")},
                              {Qt::CTRL | Qt::Key_C, QT_TR_NOOP("Copy the selected text")},
                              {Qt::CTRL | Qt::Key_W, QT_TR_NOOP("Close the window")},
                              {Qt::CTRL | Qt::Key_Q, QT_TR_NOOP("Quit Corvanite")}};

} // namespace

KeyboardShortcutsSheet::KeyboardShortcutsSheet(QWidget *parent)
    : Sheet(tr("Keyboard Shortcuts"), {}, parent) {
    setAttribute(Qt::WA_DeleteOnClose);
    auto *grid = new QGridLayout;
    grid->setHorizontalSpacing(32);
    grid->setVerticalSpacing(8);
    for (const auto &shortcut : shortcuts) {
        const auto row = grid->rowCount();
        grid->addWidget(new ThemeLabel(tr(shortcut.effect)), row, 0);
        grid->addWidget(
            new ThemeLabel(shortcut.keys.toString(QKeySequence::NativeText), TextStyle::body, TextRole::secondary), row,
            1, Qt::AlignRight);
    }
    column()->addLayout(grid);
    connect(addButton(tr("Close"), ButtonRole::primary), &QPushButton::clicked, this, &QDialog::accept);
}
