#include "http/HTTPFrontend.h"

#include "http/SelfSignedCertificate.h"
#include "http/WorkerThreads.h"

#include <fnmatch.h>

#include <iostream>
#include <thread>

namespace {

constexpr std::size_t requestsPerConnection = 100000;
constexpr auto keepAliveSeconds = 120;
constexpr std::size_t largestRequest = 128 * 1024 * 1024;
constexpr auto stopPatience = std::chrono::seconds(2);

std::unique_ptr<httplib::Server> makeServer(const ServerOptions &options) {
    if (!options.useTLS)
        return std::make_unique<httplib::Server>();
    const auto files = selfSignedCertificate(options.state / "tls");
    auto server = std::make_unique<httplib::SSLServer>(files.certificate.c_str(), files.key.c_str());
    if (!server->is_valid())
        throw std::runtime_error("cannot use the certificate " + files.certificate.string());
    return server;
}

std::string cookieValue(const std::string &cookies, const std::string &name) {
    std::istringstream stream(cookies);
    for (std::string cookie; std::getline(stream, cookie, ';');) {
        cookie.erase(0, cookie.find_first_not_of(' '));
        if (cookie.starts_with(name + "="))
            return cookie.substr(name.size() + 1);
    }
    return {};
}

nlohmann::json parseBody(const std::string &body) {
    if (body.empty())
        return nlohmann::json::object();
    auto value = nlohmann::json::parse(body, nullptr, false);
    if (!value.is_object())
        throw APIError(400, "The body is no JSON object");
    return value;
}

std::string pathOf(const httplib::Request &request) {
    return request.path.substr(request.path.starts_with('/'));
}

std::optional<int> wantedFailure(const ServerOptions &options, const std::string &path) {
    for (const auto &failure : options.failures) {
        if (fnmatch(failure.pattern.c_str(), path.c_str(), 0) == 0)
            return failure.status;
    }
    return std::nullopt;
}

void writeStream(httplib::Response &response, const std::string &contentType, const BodyStream &stream) {
    response.set_chunked_content_provider(contentType, [stream](std::size_t, httplib::DataSink &sink) {
        const auto write = [&sink](const std::string &text) {
            return sink.is_writable() && sink.write(text.data(), text.size());
        };
        if (!stream(write))
            sink.done();
        return true;
    });
}

void writeResponse(const APIResponse &answer, httplib::Response &response) {
    response.status = answer.status;
    for (const auto &[name, value] : answer.headers)
        response.set_header(name, value);
    if (answer.stream)
        writeStream(response, answer.contentType, answer.stream);
    else
        response.set_content(answer.body, answer.contentType);
}

} // namespace

HTTPFrontend::HTTPFrontend(const ServerOptions &options, const Router &router, AccountStore &accounts)
    : m_options(options)
    , m_router(router)
    , m_accounts(accounts)
    , m_server(makeServer(options)) {
    configure();
}

HTTPFrontend::~HTTPFrontend() = default;

void HTTPFrontend::configure() {
    m_server->new_task_queue = [] { return new WorkerThreads; };
    m_server->set_tcp_nodelay(true);
    // Without SO_REUSEPORT: two servers on one port would share its connections.
    m_server->set_socket_options([](socket_t socket) {
        const int yes = 1;
        setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
    });
    m_server->set_keep_alive_max_count(requestsPerConnection);
    m_server->set_keep_alive_timeout(keepAliveSeconds);
    m_server->set_payload_max_length(largestRequest);
    m_server->set_pre_routing_handler([this](const httplib::Request &, httplib::Response &) {
        requestBegan();
        return httplib::Server::HandlerResponse::Unhandled;
    });
    m_server->set_logger([this](const httplib::Request &request, const httplib::Response &response) {
        log(request, response);
        requestEnded();
    });
    const auto handler = [this](const httplib::Request &request, httplib::Response &response) {
        handle(request, response);
    };
    // A dot would not match the line breaks that a path can hold.
    const std::string any = R"([\s\S]*)";
    m_server->Get(any, handler).Post(any, handler).Put(any, handler).Patch(any, handler).Delete(any, handler);
    m_server->set_error_handler([](const httplib::Request &, httplib::Response &response) {
        if (response.body.empty())
            writeResponse(errorResponse(response.status, "The request cannot be served"), response);
    });
}

int HTTPFrontend::bind() {
    const std::string address = "127.0.0.1";
    if (m_options.port == 0)
        return m_server->bind_to_any_port(address);
    if (!m_server->bind_to_port(address, m_options.port))
        throw std::runtime_error("cannot listen on port " + std::to_string(m_options.port));
    return m_options.port;
}

void HTTPFrontend::run() {
    m_server->listen_after_bind();
}

void HTTPFrontend::stop() {
    m_server->stop();
    std::unique_lock lock(m_mutex);
    m_wake.wait_for(lock, stopPatience, [this] { return m_running <= 0; });
}

void HTTPFrontend::handle(const httplib::Request &request, httplib::Response &response) {
    std::this_thread::sleep_for(m_options.latency);
    writeResponse(answer(request), response);
}

APIResponse HTTPFrontend::answer(const httplib::Request &request) const {
    APIRequest call;
    call.method = request.method;
    call.path = pathOf(request);
    if (const auto status = wantedFailure(m_options, call.path))
        return errorResponse(*status, "This failure was asked for");
    call.query.insert(request.params.begin(), request.params.end());
    call.sessionToken = cookieValue(request.get_header_value("Cookie"), "corvanite_session");
    try {
        call.signedIn = m_accounts.accountOfSession(call.sessionToken);
        call.body = parseBody(request.body);
    } catch (const APIError &error) {
        return errorResponse(error.status(), error.what());
    }
    return m_router.dispatch(std::move(call));
}

void HTTPFrontend::log(const httplib::Request &request, const httplib::Response &response) const {
    if (m_options.isVerbose)
        std::cerr << request.method + " " + request.target + " " + std::to_string(response.status) + "\n";
}

void HTTPFrontend::requestBegan() {
    const std::lock_guard lock(m_mutex);
    ++m_running;
}

void HTTPFrontend::requestEnded() {
    const std::lock_guard lock(m_mutex);
    --m_running;
    m_wake.notify_all();
}
