#pragma once

#include <QByteArray>
#include <QMutex>
#include <QString>
#include <QThread>
#include <QWaitCondition>
#include <map>

/// Writes small files in the background, each whole or not at all, readable by their owner only. Waiting for the disk
/// must not hold up the main thread. Several writes of one path before its turn become one.
class AtomicFileWriter {
public:
    static AtomicFileWriter &shared();
    ~AtomicFileWriter();

    void write(const QString &path, QByteArray content);
    /// Waits until everything is on disk; for the end of the program.
    void flush();

private:
    AtomicFileWriter();
    void run();

    QMutex m_mutex;
    QWaitCondition m_changed;
    std::map<QString, QByteArray> m_waiting;
    bool m_writing = false;
    bool m_ending = false;
    std::unique_ptr<QThread> m_thread;
};
