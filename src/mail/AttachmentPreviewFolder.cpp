#include "mail/AttachmentPreviewFolder.h"

#include "mail/AttachmentFileName.h"
#include "platform/Clock.h"
#include "platform/FileWriting.h"

#include <QDir>
#include <QDirIterator>
#include <QUuid>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 longestStay = 86400;
constexpr auto ownerOnly = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;

QDateTime creationDate(const QFileInfo &entry) {
    const auto birth = entry.birthTime();
    // Not every file system remembers it.
    return birth.isValid() ? birth : entry.lastModified();
}

bool isOwnFolder(const QString &path) {
    const QFileInfo folder(path);
    return folder.isDir() && !folder.isSymLink() && folder.ownerId() == getuid();
}

/// Makes the folder if it is missing; false when it is somebody else's.
bool makePrivate(const QString &folder) {
    QDir().mkpath(QFileInfo(folder).path());
    QDir().mkdir(folder, ownerOnly);
    return isOwnFolder(folder) && QFile::setPermissions(folder, ownerOnly);
}

/// The folder for temporary files may be common to all users, of whom another one may have taken the name.
QString privateBase(const QString &base) {
    for (const auto &folder : {base, base + u'-' + QString::number(getuid())})
        if (makePrivate(folder))
            return folder;
    throw Error(u"The folder for temporary files cannot be used."_s);
}

void sweep(const QString &base, const QSet<QString> &open, const QDateTime &now) {
    QDirIterator entries(base, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    while (entries.hasNext()) {
        const auto path = entries.next();
        const auto entry = entries.fileInfo();
        if (open.contains(path) || creationDate(entry).msecsTo(now) <= longestStay * 1000)
            continue;
        if (entry.isDir() && !entry.isSymLink())
            QDir(path).removeRecursively();
        else
            QFile::remove(path);
    }
}

QString makeFolderIn(const QString &base) {
    const auto folder = base + u'/' + QUuid::createUuid().toString(QUuid::WithoutBraces);
    if (!QDir().mkdir(folder, ownerOnly))
        throw Error(u"The folder for temporary files cannot be used."_s);
    return folder;
}

QString writeInto(const QString &folder, const QString &filename, const QByteArray &bytes) {
    const auto file = folder + u'/' + storableFileName(filename);
    try {
        writeFileAtomically(file, bytes);
    } catch (...) {
        QDir(folder).removeRecursively();
        throw;
    }
    return file;
}

} // namespace

AttachmentPreviewFolder &AttachmentPreviewFolder::shared() {
    static AttachmentPreviewFolder folder(QDir::tempPath() + u"/CorvaniteAttachmentPreviews"_s);
    return folder;
}

AttachmentPreviewFolder::AttachmentPreviewFolder(QString base)
    : m_base(std::move(base)) {}

QCoro::Task<QString> AttachmentPreviewFolder::makeFolder() {
    return fileWork<QString>([base = m_base, open = m_open, now = Clock::shared().now()] {
        const auto folder = privateBase(base);
        sweep(folder, open, now);
        return makeFolderIn(folder);
    });
}

QCoro::Task<QString> AttachmentPreviewFolder::store(QString filename, QByteArray bytes) {
    const auto folder = co_await makeFolder();
    const std::function<QString()> work = [=] { return writeInto(folder, filename, bytes); };
    auto file = co_await fileWork(work);
    co_return std::move(file);
}

void AttachmentPreviewFolder::keep(const QString &file) {
    m_open.insert(QFileInfo(file).path());
}

void AttachmentPreviewFolder::release(const QString &file) {
    m_open.remove(QFileInfo(file).path());
}
