#include "app/ServerAddressForm.h"

#include "net/APIClient.h"
#include "net/ServerAddress.h"
#include "platform/UserDefaults.h"

using namespace Qt::StringLiterals;

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
    const QUrl url(normalizedServerAddress(address), QUrl::StrictMode);
    if (!url.isValid() || url.host().isEmpty() || !url.scheme().startsWith("http"_L1)) {
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
