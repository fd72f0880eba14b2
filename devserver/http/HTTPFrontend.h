#pragma once

#include "ServerOptions.h"
#include "accounts/AccountStore.h"
#include "http/Router.h"

#include <condition_variable>
#include <memory>

namespace httplib {
class Server;
struct Request;
struct Response;
} // namespace httplib

/// The sockets: turns HTTP requests into APIRequests for the router, and its answers into HTTP.
class HTTPFrontend {
public:
    HTTPFrontend(const ServerOptions &options, const Router &router, AccountStore &accounts);
    ~HTTPFrontend();

    /// Takes the port on 127.0.0.1 and returns its number.
    int bind();
    /// Serves until stop().
    void run();
    /// Refuses new connections and waits, for a moment at most, until the requests at hand are answered.
    void stop();

private:
    void configure();
    void handle(const httplib::Request &request, httplib::Response &response);
    APIResponse answer(const httplib::Request &request) const;
    void log(const httplib::Request &request, const httplib::Response &response) const;
    void requestBegan();
    void requestEnded();

    const ServerOptions &m_options;
    const Router &m_router;
    AccountStore &m_accounts;
    std::unique_ptr<httplib::Server> m_server;
    std::mutex m_mutex;
    std::condition_variable m_wake;
    int m_running = 0;
};
