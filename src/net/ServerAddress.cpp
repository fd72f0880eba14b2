#include "net/ServerAddress.h"

#include "platform/UserDefaults.h"

using namespace Qt::StringLiterals;

QString defaultServerEndpoint() {
    return QString::fromUtf8(CORVANITE_DEFAULT_SERVER);
}

QString currentServerAddress() {
    return UserDefaults::standard().text(u"serverURL"_s).value_or(defaultServerEndpoint());
}

QString normalizedServerAddress(const QString &text) {
    auto address = text.trimmed();
    if (address.endsWith(u'/'))
        address.chop(1);
    return address.startsWith("http"_L1) ? address : u"https://"_s + address;
}
