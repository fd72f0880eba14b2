#pragma once

#include <QByteArray>
#include <QString>

class QWidget;

/// Asks where to save these bytes and writes them there in the background; a failure to write says nothing.
/// `parent` may be null.
void showSavePanel(QWidget *parent, const QString &filename, const QByteArray &bytes);
/// The same for a file that is already there.
void showSavePanelForFile(QWidget *parent, const QString &path);
