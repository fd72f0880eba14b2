#pragma once

#include "ui/screens/Sheet.h"

/// Lists the keys that the program answers to.
class KeyboardShortcutsSheet final : public Sheet {
    Q_OBJECT
public:
    explicit KeyboardShortcutsSheet(QWidget *parent);
};
