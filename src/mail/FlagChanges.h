#pragma once

#include <QObject>
#include <vector>

/// Tells everybody who shows a message of the flags that were changed here on the server, so that a message that is
/// open twice looks the same in both places. Main thread only.
class FlagChanges final : public QObject {
    Q_OBJECT
public:
    static FlagChanges &shared();

Q_SIGNALS:
    /// `flag` is "seen" or "flagged".
    void changed(const QString &folder, const std::vector<qint64> &uids, const QString &flag, bool value);
};
