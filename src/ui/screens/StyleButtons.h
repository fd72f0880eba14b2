#pragma once

#include "ui/ThemeDefinition.h"
#include "ui/screens/ButtonRole.h"

class QPainter;
class QStyleOptionButton;
class QStyleOptionToolButton;

void paintButtonPanel(QPainter *painter, const QStyleOptionButton &button, ButtonRole role,
                      const ThemeDefinition &theme);
void paintButtonLabel(QPainter *painter, const QStyleOptionButton &button, ButtonRole role,
                      const ThemeDefinition &theme);
void paintToolButton(QPainter *painter, const QStyleOptionToolButton &button, ButtonRole role,
                     const ThemeDefinition &theme);
