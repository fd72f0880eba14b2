#include "app/SignIn.h"

QCoro::Task<> signIn(std::shared_ptr<AuthViewModel> form, std::shared_ptr<AppState> appState) {
    const auto user = co_await form->login();
    if (user)
        appState->didSignIn(*user);
}

QCoro::Task<> createAccount(std::shared_ptr<AuthViewModel> form) {
    const bool made = co_await form->register_();
    if (made)
        form->switchForm(false);
}
