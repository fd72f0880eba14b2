#include "driver/DevServerProcess.h"

#include <QUrl>
#include <csignal>
#include <stdexcept>
#include <sys/prctl.h>

using namespace Qt::StringLiterals;

DevServerProcess::DevServerProcess(const QStringList &arguments)
    : m_arguments(arguments) {
    // It does not outlive tests that crash.
    m_process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGTERM); });
    start(u"0"_s);
}

DevServerProcess::~DevServerProcess() {
    m_process.terminate();
    if (!m_process.waitForFinished(5000))
        kill();
}

int DevServerProcess::requests(const QString &path) {
    m_log += QString::fromUtf8(m_process.readAllStandardError());
    int count = 0;
    for (const auto &line : m_log.split(u'\n'))
        count += line.contains(path) && line.contains(u" 200"_s);
    return count;
}

void DevServerProcess::kill() {
    m_process.kill();
    m_process.waitForFinished();
}

void DevServerProcess::restart() {
    start(QString::number(QUrl(m_address).port()));
}

void DevServerProcess::start(const QString &port) {
    m_process.start(QString::fromUtf8(CORVANITE_DEVSERVER),
                    QStringList{u"--port"_s, port, u"--state"_s, m_state.path()} + m_arguments);
    while (m_process.state() != QProcess::NotRunning && !m_process.canReadLine())
        if (!m_process.waitForReadyRead(60000))
            break;
    const auto words = QString::fromUtf8(m_process.readLine()).trimmed().split(u' ');
    if (words.size() != 2)
        throw std::runtime_error("the development server did not start");
    m_address = words[1];
}
