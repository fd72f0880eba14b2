#include "net/TrustManager.h"

#include "platform/UserDefaults.h"

using namespace Qt::StringLiterals;

TrustManager &TrustManager::shared() {
    static TrustManager manager;
    return manager;
}

ChallengeDisposition TrustManager::handle(const AuthenticationChallenge &challenge) const {
    const bool trustsAll = UserDefaults::standard().flag(u"trustSelfSigned"_s).value_or(false);
    const bool concernsServer =
        challenge.method == AuthenticationChallenge::Method::serverTrust && challenge.hasServerTrust;
    return trustsAll && concernsServer ? ChallengeDisposition::useCredential
                                       : ChallengeDisposition::performDefaultHandling;
}
