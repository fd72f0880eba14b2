#pragma once

#include <QSslCertificate>
#include <QSslKey>

struct SelfSignedCertificate {
    QSslCertificate certificate;
    QSslKey key;
};

/// A certificate for 127.0.0.1 that no authority has signed, made once a process.
SelfSignedCertificate selfSignedCertificate();
