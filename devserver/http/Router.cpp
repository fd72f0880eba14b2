#include "http/Router.h"

#include <iostream>
#include <sstream>

namespace {

std::vector<std::string> splitPath(const std::string &path) {
    std::vector<std::string> segments;
    std::istringstream stream(path);
    for (std::string segment; std::getline(stream, segment, '/');)
        segments.push_back(segment);
    return segments;
}

std::optional<std::vector<std::string>> match(const std::vector<std::string> &pattern,
                                              const std::vector<std::string> &segments) {
    if (pattern.size() != segments.size())
        return std::nullopt;
    std::vector<std::string> arguments;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        if (pattern[i].starts_with(':'))
            arguments.push_back(segments[i]);
        else if (pattern[i] != segments[i])
            return std::nullopt;
    }
    return arguments;
}

} // namespace

APIResponse errorResponse(int status, const std::string &message) {
    auto response = APIResponse::json({{"message", message}});
    response.status = status;
    return response;
}

void Router::add(const std::string &method, const std::string &pattern, APIHandler handler, Access access) {
    m_routes.push_back({method, splitPath(pattern), std::move(handler), access});
}

APIResponse Router::dispatch(APIRequest request) const {
    try {
        return call(request);
    } catch (const APIError &error) {
        return errorResponse(error.status(), error.what());
    } catch (const std::exception &error) {
        std::cerr << request.method << ' ' << request.path << ": " << error.what() << std::endl;
        return errorResponse(500, "The server failed: " + std::string(error.what()));
    }
}

APIResponse Router::call(APIRequest &request) const {
    bool pathKnown = false;
    const Route *route = find(request, pathKnown);
    if (!request.signedIn && (!route || route->access == Access::SignedIn))
        return errorResponse(401, "Not signed in");
    if (!route)
        return pathKnown ? errorResponse(405, "Method not allowed") : errorResponse(404, "No such endpoint");
    return route->handler(request);
}

const Router::Route *Router::find(APIRequest &request, bool &pathKnown) const {
    const auto segments = splitPath(request.path);
    for (const auto &route : m_routes) {
        auto arguments = match(route.segments, segments);
        if (!arguments)
            continue;
        pathKnown = true;
        if (route.method != request.method)
            continue;
        request.pathArguments = std::move(*arguments);
        return &route;
    }
    return nullptr;
}
