#pragma once

#include "compose/EditorVocabulary.h"

#include <QString>

#include <functional>
#include <span>

class QMenu;
class QWidget;

/// A menu of the choices; with dots of their colours, if they are colours.
QMenu *makeChoiceMenu(std::span<const EditorChoice> choices, bool areColors, QWidget *parent,
                      const std::function<void(const QString &value)> &choose);
