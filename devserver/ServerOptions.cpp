#include "ServerOptions.h"

#include <charconv>
#include <cstdlib>
#include <functional>
#include <map>
#include <stdexcept>

const char *const serverUsage = R"(usage: corvanite-devserver [options]
       corvanite-devserver --fill N DIR [--attachment MB]

A webmail server for development. It serves mail of a Maildir on 127.0.0.1 and prints one line,
"listening http://127.0.0.1:PORT", as soon as it answers. Without --account there are two accounts, "demo",
with a mailbox to try things with, and "ilias", to write to; both have the password "corvanite".
The accounts can write to each other: the address of NAME is NAME@corvanite.example, that of "demo"
is dana@corvanite.example.

  --port N                 listen there (default 8143; 0 takes a free port)
  --tls                    HTTPS with a self-signed certificate, kept in the state folder
  --maildir DIR            serve this Maildir++ tree to the first account; only flags, moves and mail that is
                           sent or delivered change it
  --state DIR              keep accounts, indexes and other mail there
                           (default $XDG_STATE_HOME/corvanite-devserver)
  --account NAME:PASSWORD  an account; may be given again
  --no-registration        refuse new accounts
  --session-lifetime SECS  how long a session lasts (default 30 days)
  --latency MS             answer each request that much later
  --fail PATTERN=STATUS    answer with that status where the shell glob matches the path, such as
                           "api/emails/*=500"; may be given again
  --smtp HOST:PORT         hand mail for others than the accounts here to this SMTP server, without TLS or a
                           password; without it, such mail is refused
  --smtp-timeout MS        how long it may take for each answer (default 20000)
  --job-pause MS           how long a background job rests before each ten messages (default 400)
  --verbose                log requests to the standard error
  --fill N DIR             write a Maildir with N messages and end
  --attachment MB          with --fill: the newest message comes with a file of so many megabytes
  --help                   show this
)";

namespace {

int parseNumber(const std::string &option, const std::string &text) {
    int number = 0;
    const auto end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || stop != end || number < 0)
        throw std::runtime_error(option + " needs a number, not \"" + text + "\"");
    return number;
}

std::pair<std::string, std::string> split(const std::string &option, const std::string &text, char separator) {
    const auto position = separator == '=' ? text.rfind(separator) : text.find(separator);
    if (position == std::string::npos || position == 0 || position + 1 == text.size())
        throw std::runtime_error(option + " cannot read \"" + text + "\"");
    return {text.substr(0, position), text.substr(position + 1)};
}

std::filesystem::path defaultState() {
    if (const char *state = std::getenv("XDG_STATE_HOME"); state && *state)
        return std::filesystem::path(state) / "corvanite-devserver";
    const char *home = std::getenv("HOME");
    return std::filesystem::path(home ? home : ".") / ".local/state/corvanite-devserver";
}

class OptionReader {
public:
    explicit OptionReader(const std::vector<std::string> &arguments)
        : m_arguments(arguments) {
        m_options.state = defaultState();
    }

    ServerOptions read() {
        while (m_next < m_arguments.size()) {
            m_option = m_arguments[m_next++];
            const auto found = m_readers.find(m_option);
            if (found == m_readers.end())
                throw std::runtime_error("unknown option \"" + m_option + "\"");
            found->second();
        }
        return m_options;
    }

private:
    const std::string &value() {
        if (m_next == m_arguments.size())
            throw std::runtime_error(m_option + " needs a value");
        return m_arguments[m_next++];
    }

    int number() { return parseNumber(m_option, value()); }

    void readAccount() {
        const auto [name, password] = split(m_option, value(), ':');
        m_options.accounts.push_back({name, password});
    }

    void readFailure() {
        const auto [pattern, status] = split(m_option, value(), '=');
        m_options.failures.push_back({pattern, parseNumber(m_option, status)});
    }

    void readSMTP() {
        auto [host, port] = split(m_option, value(), ':');
        m_options.smtp = SMTPServer{std::move(host), std::move(port)};
    }

    void readFill() {
        const int messages = number();
        m_options.fill = FillOption{messages, value()};
    }

    void readAttachment() {
        if (!m_options.fill)
            throw std::runtime_error("--attachment needs --fill before it");
        m_options.fill->attachment = number();
    }

    const std::vector<std::string> &m_arguments;
    std::size_t m_next = 0;
    std::string m_option;
    ServerOptions m_options;
    const std::map<std::string, std::function<void()>> m_readers{
        {"--port", [this] { m_options.port = number(); }},
        {"--tls", [this] { m_options.useTLS = true; }},
        {"--maildir", [this] { m_options.maildir = value(); }},
        {"--state", [this] { m_options.state = value(); }},
        {"--account", [this] { readAccount(); }},
        {"--no-registration", [this] { m_options.allowsRegistration = false; }},
        {"--session-lifetime", [this] { m_options.sessionLifetime = std::chrono::seconds(number()); }},
        {"--latency", [this] { m_options.latency = std::chrono::milliseconds(number()); }},
        {"--fail", [this] { readFailure(); }},
        {"--smtp", [this] { readSMTP(); }},
        {"--smtp-timeout", [this] { m_options.smtpTimeout = std::chrono::milliseconds(number()); }},
        {"--job-pause", [this] { m_options.jobPause = std::chrono::milliseconds(number()); }},
        {"--verbose", [this] { m_options.isVerbose = true; }},
        {"--fill", [this] { readFill(); }},
        {"--attachment", [this] { readAttachment(); }},
        {"--help", [this] { m_options.wantsHelp = true; }},
    };
};

} // namespace

ServerOptions parseServerOptions(const std::vector<std::string> &arguments) {
    return OptionReader(arguments).read();
}
