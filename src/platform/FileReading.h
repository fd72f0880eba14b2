#pragma once

#include <QByteArray>
#include <QString>

/// The first `maximum` bytes of a regular file, or all of a shorter one. Blocks; is for `fileWork`. Fails with `Error`,
/// also for a folder, a pipe or a device, without ever waiting for one.
QByteArray readRegularFile(const QString &path, qint64 maximum);
