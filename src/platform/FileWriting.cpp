#include "platform/FileWriting.h"

#include <QFile>
#include <QSaveFile>

void writeFileAtomically(const QString &path, const QByteArray &bytes) {
    QSaveFile file(path);
    // A full disk takes a part without calling it an error.
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        throw Error(file.errorString());
}

void writeNewFile(const QString &path, const QByteArray &bytes) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        throw Error(file.errorString());
    if (file.write(bytes) == bytes.size() && file.flush())
        return;
    const auto reason = file.errorString();
    file.remove();
    throw Error(reason);
}

QCoro::Task<> fileWork(std::function<void()> work) {
    const std::function<bool()> withResult = [work] {
        work();
        return true;
    };
    co_await fileWork<bool>(withResult);
}
