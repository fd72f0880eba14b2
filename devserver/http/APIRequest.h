#pragma once

#include "accounts/Account.h"
#include "http/APIError.h"

#include <nlohmann/json.hpp>

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

/// What a handler is given: who asks, and what, with the body parsed. Accessors fail with status 400.
struct APIRequest {
    std::string method;
    std::string path;
    /// Texts that stood in the place of the pattern's ":name" segments, in order.
    std::vector<std::string> pathArguments;
    std::map<std::string, std::string> query;
    /// A JSON object; empty when the request had no body.
    nlohmann::json body = nlohmann::json::object();
    /// The session cookie as sent; empty without one.
    std::string sessionToken;
    /// Who is signed in; only routes that are open to everybody see a request without.
    std::optional<Account> signedIn;

    const Account &account() const { return *signedIn; }

    std::string queryText(const std::string &name) const;
    std::string queryText(const std::string &name, const std::string &otherwise) const;
    std::int64_t queryInteger(const std::string &name, std::int64_t otherwise) const;
    bool queryFlag(const std::string &name) const { return queryText(name, "") == "1"; }
    std::int64_t pathInteger(std::size_t position) const;

    std::string bodyText(const std::string &name) const;
    std::optional<std::string> bodyOptionalText(const std::string &name) const;
    std::int64_t bodyInteger(const std::string &name) const;
    bool bodyFlag(const std::string &name) const;
    std::vector<std::int64_t> bodyIntegers(const std::string &name) const;
};

/// Writes a body piece by piece until it returns false; called on the connection's own thread.
using BodyStream = std::function<bool(const std::function<bool(const std::string &)> &write)>;

/// What a handler gives back: JSON, bytes of some media type, or a stream.
struct APIResponse {
    int status = 200;
    /// The parameter keeps the HTTP library from compressing, for which its Brotli takes 50 ms a page of a list.
    std::string contentType = "application/json; charset=utf-8";
    std::string body;
    std::map<std::string, std::string> headers;
    BodyStream stream;

    static APIResponse json(const nlohmann::json &value);
    /// The answer of commands that have nothing to tell.
    static APIResponse done();
};

using APIHandler = std::function<APIResponse(const APIRequest &)>;

/// JSON text that is valid UTF-8 whatever bytes the value holds.
std::string jsonText(const nlohmann::json &value);
