#pragma once

#include "http/APIRequest.h"

/// Who may call a route.
enum class Access { SignedIn, Everybody };

/// Finds the handler of a method and path. A pattern is a path without leading slash, in which a segment ":name"
/// stands for any one segment.
class Router {
public:
    void add(const std::string &method, const std::string &pattern, APIHandler handler,
             Access access = Access::SignedIn);

    /// Runs the handler; every failure becomes a JSON answer with a "message". Nobody learns without a session which
    /// paths exist.
    APIResponse dispatch(APIRequest request) const;

private:
    struct Route {
        std::string method;
        std::vector<std::string> segments;
        APIHandler handler;
        Access access;
    };

    APIResponse call(APIRequest &request) const;
    const Route *find(APIRequest &request, bool &pathKnown) const;

    std::vector<Route> m_routes;
};

APIResponse errorResponse(int status, const std::string &message);
