#include "ui/screens/SplashView.h"

#include "ui/screens/BrandMark.h"
#include "ui/screens/ThemeLabel.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;

SplashView::SplashView(QWidget *parent)
    : MailThemeBackground(false, parent) {
    auto *name = new ThemeLabel(u"Corvanite"_s, TextStyle::title);
    auto *column = new QVBoxLayout(this);
    column->setSpacing(20);
    column->addStretch(4);
    column->addWidget(new BrandMark(u"envelope.fill"_s, 80), 0, Qt::AlignHCenter);
    column->addWidget(name, 0, Qt::AlignHCenter);
    column->addStretch(5);
}
