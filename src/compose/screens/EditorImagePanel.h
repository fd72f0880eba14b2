#pragma once

#include <QString>

#include <functional>

class QWidget;

/// Asks for image files and hands each that can be read to `insert` as a data URL, in their order, for as long as
/// `parent` lives.
void showEditorImagePanel(QWidget *parent, const std::function<void(const QString &dataURL)> &insert);
