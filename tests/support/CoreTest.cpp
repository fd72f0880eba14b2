#include "support/CoreTest.h"

#include "platform/AtomicFileWriter.h"
#include "platform/HTTPCookieStorage.h"
#include "platform/StandardPaths.h"
#include "platform/Tasks.h"
#include "platform/UserDefaults.h"

#include <QFile>
#include <QJsonDocument>
#include <QMutex>
#include <QNetworkCookie>

using namespace Qt::StringLiterals;

namespace {

QMutex warningsMutex;
QStringList warnings;

void recordMessage(QtMsgType type, const QMessageLogContext &, const QString &text) {
    fprintf(stderr, "%s\n", qPrintable(text));
    if (type == QtDebugMsg || type == QtInfoMsg)
        return;
    const QMutexLocker lock(&warningsMutex);
    warnings.append(text);
}

QStringList takeWarnings() {
    const QMutexLocker lock(&warningsMutex);
    return std::exchange(warnings, {});
}

QByteArray contentOf(const QString &path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void clear(UserDefaults &store, const QString &path) {
    for (const auto &key : QJsonDocument::fromJson(contentOf(path)).object().keys())
        store.remove(key);
}

void clearCookies() {
    for (const auto &line : contentOf(dataFolder() + u"/cookies.txt"_s).split('\n')) {
        const auto tab = line.indexOf('\t');
        auto cookies = QNetworkCookie::parseCookies(line.mid(tab + 1));
        for (auto &cookie : cookies)
            cookie.setDomain(QString::fromUtf8(line.left(tab)));
        HTTPCookieStorage::shared().remove(cookies);
    }
}

void clearStores() {
    AtomicFileWriter::shared().flush();
    clear(UserDefaults::standard(), configFolder() + u"/defaults.json"_s);
    const auto suite = TestHome::dataHome() + u'/' + applicationGroupName() + u"/defaults.json"_s;
    if (QFile::exists(suite))
        clear(*UserDefaults::suite(applicationGroupName()), suite);
    clearCookies();
    AtomicFileWriter::shared().flush();
}

} // namespace

TestHome::TestHome() {
    qputenv("XDG_CONFIG_HOME", m_folder.filePath(u"config"_s).toUtf8());
    qputenv("XDG_DATA_HOME", m_folder.filePath(u"data"_s).toUtf8());
}

QString TestHome::configHome() {
    return qEnvironmentVariable("XDG_CONFIG_HOME");
}

QString TestHome::dataHome() {
    return qEnvironmentVariable("XDG_DATA_HOME");
}

CoreTest::CoreTest() {
    qInstallMessageHandler(recordMessage);
}

CoreTest::~CoreTest() {
    qInstallMessageHandler(nullptr);
}

void CoreTest::TearDown() {
    EXPECT_TRUE(spinUntil([] { return launchedTaskCount() == 0; })) << launchedTaskCount() << " tasks still running";
    deliverQueuedEvents();
    checkWarnings();
    clearStores();
}

void CoreTest::expectWarning(const QString &pattern) {
    m_expectedWarnings.append(QRegularExpression(pattern));
}

void CoreTest::checkWarnings() {
    const auto seen = takeWarnings();
    const auto matches = [](const QString &text) {
        return [text](const QRegularExpression &expected) { return expected.match(text).hasMatch(); };
    };
    for (const auto &text : seen)
        EXPECT_TRUE(std::ranges::any_of(m_expectedWarnings, matches(text))) << "warning: " << qPrintable(text);
    for (const auto &expected : m_expectedWarnings)
        EXPECT_FALSE(seen.filter(expected).isEmpty()) << "no warning like " << qPrintable(expected.pattern());
}

void PrintTo(const QString &text, std::ostream *stream) {
    *stream << '"' << qUtf8Printable(text) << '"';
}

void PrintTo(const QByteArray &bytes, std::ostream *stream) {
    *stream << '"' << bytes.toStdString() << '"';
}
