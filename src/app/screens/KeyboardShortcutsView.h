#pragma once

#include "ui/screens/Sheet.h"

struct ShortcutSection;

/// Lists the keys that the program answers to.
class KeyboardShortcutsView final : public Sheet {
    Q_OBJECT
public:
    explicit KeyboardShortcutsView(QWidget *parent);

private:
    QWidget *makeSection(const ShortcutSection &section);
};
