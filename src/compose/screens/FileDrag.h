#pragma once

#include <QList>
#include <QUrl>

class QMimeData;
class QWidget;

/// The files among what is being dragged.
QList<QUrl> draggedFiles(const QMimeData &data);

/// Lets files that are dragged over `field` pass through to the screen around it, which attaches them.
void leaveFilesToScreen(QWidget *field);
