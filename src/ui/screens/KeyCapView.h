#pragma once

#include "ui/screens/ThemeLabel.h"

/// A key of the keyboard, as a small cap with its name.
class KeyCapView final : public ThemeLabel {
    Q_OBJECT
public:
    explicit KeyCapView(const QString &cap, QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
};
