#pragma once

#include <QString>

class QWidget;

/// Lets the person choose a program to hand the file to, with the chooser of the desktop. Where there is none, the file
/// opens in the program that is set for its type.
void shareFile(const QString &path, const QWidget *window);
