#include "ProgramProcess.h"

#include "RawServer.h"
#include "platform/AtomicFileWriter.h"
#include "platform/HTTPCookieStorage.h"
#include "platform/UserDefaults.h"

#include <QNetworkCookie>

using namespace Qt::StringLiterals;

Profile::Profile(const QString &address) {
    UserDefaults(file(u"defaults.json"_s)).set(u"serverURL"_s, address);
    AtomicFileWriter::shared().flush();
}

void Profile::storeSession(const RawServer &server, const QString &address) {
    HTTPCookieStorage(file(u"cookies.txt"_s))
        .setCookies(QNetworkCookie::parseCookies(server.sessionHeader()), QUrl(address));
    AtomicFileWriter::shared().flush();
}

QString Profile::file(const QString &name) const {
    return m_folder.path() + u"/corvanite/"_s + name;
}

QProcessEnvironment Profile::environment() const {
    auto environment = QProcessEnvironment::systemEnvironment();
    for (const auto &variable : {u"XDG_CONFIG_HOME"_s, u"XDG_DATA_HOME"_s})
        environment.insert(variable, m_folder.path());
    return environment;
}

ProgramProcess::ProgramProcess(const Profile &profile) {
    m_process.setProcessChannelMode(QProcess::ForwardedChannels);
    m_process.setProcessEnvironment(profile.environment());
    m_process.start(QString::fromUtf8(CORVANITE_PROGRAM), QStringList());
}

ProgramProcess::~ProgramProcess() {
    m_process.terminate();
    m_process.waitForFinished();
}
