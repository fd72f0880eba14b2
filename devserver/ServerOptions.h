#pragma once

#include "send/SMTPConnection.h"

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

struct AccountOption {
    std::string username;
    std::string password;
};

struct FailOption {
    /// A shell glob over the path without its leading slash; "*" crosses slashes.
    std::string pattern;
    int status = 500;
};

struct FillOption {
    int messages = 0;
    std::filesystem::path folder;
    /// Megabytes of the file that comes with the newest message; 0 for none.
    int attachment = 0;
};

struct ServerOptions {
    int port = 8143;
    bool useTLS = false;
    bool isVerbose = false;
    bool allowsRegistration = true;
    bool wantsHelp = false;
    std::optional<std::filesystem::path> maildir;
    std::filesystem::path state;
    std::vector<AccountOption> accounts;
    std::chrono::milliseconds latency{0};
    std::chrono::milliseconds jobPause{400};
    std::chrono::seconds sessionLifetime{30 * 24 * 3600};
    std::vector<FailOption> failures;
    /// Who takes mail for others than this server's accounts.
    std::optional<SMTPServer> smtp;
    std::chrono::milliseconds smtpTimeout{20000};
    /// Write a Maildir instead of serving one.
    std::optional<FillOption> fill;
};

/// Fails with a std::runtime_error that says which argument is wrong.
ServerOptions parseServerOptions(const std::vector<std::string> &arguments);

extern const char *const serverUsage;
