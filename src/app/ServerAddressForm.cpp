#include "app/ServerAddressForm.h"

#include "net/APIClient.h"
#include "net/ServerAddress.h"
#include "platform/UserDefaults.h"

using namespace Qt::StringLiterals;

namespace {

bool isServerAddress(const QUrl &url) {
    const bool isWeb = url.scheme() == "http"_L1 || url.scheme() == "https"_L1;
    // Two slashes are what another scheme, such as "ftp://", leaves behind the one that was put in front of it.
    return url.isValid() && isWeb && !url.host().isEmpty() && !url.path().startsWith("//"_L1);
}

} // namespace

ServerAddressForm::ServerAddressForm(std::shared_ptr<AppState> appState)
    : m_appState(std::move(appState)) {
    reset();
}

void ServerAddressForm::reset() {
    address = currentAddress();
    trustsSelfSigned = UserDefaults::standard().flag(u"trustSelfSigned"_s).value_or(false);
    errorMessage = std::nullopt;
}

bool ServerAddressForm::apply() {
    if (!isServerAddress(QUrl(normalizedServerAddress(address), QUrl::StrictMode))) {
        errorMessage =
            u"This is not a server address. Write it like mail.example.org or https://mail.example.org:8443."_s;
        return false;
    }
    UserDefaults::standard().set(u"trustSelfSigned"_s, trustsSelfSigned.get());
    APIClient::shared().setServerURL(address);
    m_appState->serverURL = currentServerAddress();
    errorMessage = std::nullopt;
    return true;
}
