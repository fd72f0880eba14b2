#include "support/SelfSignedCertificate.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

struct PEM {
    QByteArray certificate, key;
};

PEM make() {
    const QTemporaryDir folder;
    QFile certificate(folder.filePath(u"certificate.pem"_s)), key(folder.filePath(u"key.pem"_s));
    const auto command = u"req -x509 -newkey ec -pkeyopt ec_paramgen_curve:prime256v1 -nodes -days 2 "
                         "-subj /CN=127.0.0.1 -addext subjectAltName=IP:127.0.0.1 -out %1 -keyout %2"_s;
    QProcess openssl;
    openssl.start(u"openssl"_s, command.arg(certificate.fileName(), key.fileName()).split(u' '));
    EXPECT_TRUE(openssl.waitForFinished() && openssl.exitCode() == 0) << "openssl made no certificate";
    EXPECT_TRUE(certificate.open(QIODevice::ReadOnly) && key.open(QIODevice::ReadOnly));
    return {certificate.readAll(), key.readAll()};
}

} // namespace

SelfSignedCertificate selfSignedCertificate() {
    // Kept as text: the objects must not outlive the TLS backend at the end of the process.
    static const auto made = make();
    return {QSslCertificate(made.certificate), QSslKey(made.key, QSsl::Ec)};
}
