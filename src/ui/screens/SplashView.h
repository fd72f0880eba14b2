#pragma once

#include "ui/screens/MailThemeBackground.h"

/// On screen while the program finds out who is signed in.
class SplashView : public MailThemeBackground {
    Q_OBJECT
public:
    explicit SplashView(QWidget *parent = nullptr);
};
