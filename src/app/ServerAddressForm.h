#pragma once

#include "app/AppState.h"

/// The choice of the server on the sign-in screen: its address and whether its own certificate is trusted.
class ServerAddressForm : public ObservableObject {
    Q_OBJECT
public:
    explicit ServerAddressForm(std::shared_ptr<AppState> appState);

    Published<QString> address{this};
    Published<bool> trustsSelfSigned{this, false};
    Published<std::optional<QString>> errorMessage{this};

    /// The address in force.
    QString currentAddress() const { return m_appState->serverURL; }
    /// Fills the fields with what is in force.
    void reset();
    /// Whether both were stored; otherwise `errorMessage` says what is wrong with the address.
    bool apply();

private:
    std::shared_ptr<AppState> m_appState;
};
