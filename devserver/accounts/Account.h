#pragma once

#include <nlohmann/json.hpp>

#include <string>

struct Account {
    std::string id;
    std::string username;
    std::string email;
    std::string fullName;
    bool isAdministrator = false;
    /// What the account has changed of the record's further fields, under their JSON keys.
    nlohmann::json settings = nlohmann::json::object();
};

/// The account as the client knows it: identity, defaults, and the account's own settings over them.
nlohmann::json accountRecord(const Account &account);
