#pragma once

#include "app/AppState.h"
#include "app/AuthViewModel.h"

/// Sends the sign-in form; an accepted account enters the signed-in state.
QCoro::Task<> signIn(std::shared_ptr<AuthViewModel> form, std::shared_ptr<AppState> appState);

/// Sends the registration form; a new account leads back to the sign-in form, which keeps name and password.
QCoro::Task<> createAccount(std::shared_ptr<AuthViewModel> form);
