#include "platform/StandardPaths.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

QString dataHome() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
}

} // namespace

QString configFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + u"/corvanite"_s;
}

QString dataFolder() {
    return dataHome() + u"/corvanite"_s;
}

QString applicationGroupName() {
    return u"group.com.corvanite.shared"_s;
}

std::optional<QString> groupContainerFolder(const QString &name) {
    const auto folder = dataHome() + u'/' + name;
    if (QDir(folder).exists())
        return folder;
    if (!QDir().mkpath(folder))
        return std::nullopt;
    QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return folder;
}
