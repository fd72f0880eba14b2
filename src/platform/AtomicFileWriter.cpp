#include "platform/AtomicFileWriter.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

namespace {

void writeWhole(const QString &path, const QByteArray &content) {
    const auto folder = QFileInfo(path).absolutePath();
    if (!QFileInfo::exists(folder)) {
        QDir().mkpath(folder);
        QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return;
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    // A full disk takes a part without calling it an error.
    if (file.write(content) != content.size())
        file.cancelWriting();
    file.commit();
}

} // namespace

AtomicFileWriter &AtomicFileWriter::shared() {
    static AtomicFileWriter writer;
    return writer;
}

AtomicFileWriter::AtomicFileWriter()
    : m_thread(QThread::create([this] { run(); })) {
    m_thread->start();
}

AtomicFileWriter::~AtomicFileWriter() {
    {
        const QMutexLocker lock(&m_mutex);
        m_ending = true;
        m_changed.wakeAll();
    }
    m_thread->wait();
}

void AtomicFileWriter::write(const QString &path, QByteArray content) {
    const QMutexLocker lock(&m_mutex);
    m_waiting[path] = std::move(content);
    m_changed.wakeAll();
}

void AtomicFileWriter::flush() {
    QMutexLocker lock(&m_mutex);
    while (!m_waiting.empty() || m_writing)
        m_changed.wait(&m_mutex);
}

void AtomicFileWriter::run() {
    QMutexLocker lock(&m_mutex);
    while (true) {
        if (m_waiting.empty()) {
            if (m_ending)
                return;
            m_changed.wait(&m_mutex);
            continue;
        }
        const auto next = m_waiting.extract(m_waiting.begin());
        m_writing = true;
        lock.unlock();
        writeWhole(next.key(), next.mapped());
        lock.relock();
        m_writing = false;
        m_changed.wakeAll();
    }
}
