#pragma once

#include "app/AppStateFixture.h"
#include "compose/ComposeState.h"

/// A compose screen over a scripted server, whose contacts and sender addresses come at once unless a test holds them.
class ComposeFixture : public CoreTest, protected AppStateFixture {
protected:
    void TearDown() override {
        settle();
        screen.reset();
        state.reset();
        CoreTest::TearDown();
    }

    FakeExchange &expectAddresses() { return server.expect("GET", "/api/from-addresses"); }
    FakeExchange &expectContacts() { return server.expect("GET", "/api/contacts"); }
    FakeExchange &expectSend() { return server.expect("POST", "/api/emails/send"); }

    void signIn(const QByteArray &fields = {}) { beginSession(R"({"_id": "u1", "username": "me")" + fields + "}"); }
    void begin() {
        expectContacts().json(contactsJSON);
        state->presentCompose();
        screen = ComposeState::make(state);
        screen->start();
    }
    /// The new screen, filled.
    void open() {
        expectAddresses().json(R"({"addresses": [{"address": "me@a"}, {"address": "too@a"}]})");
        begin();
        settle();
    }
    /// The new screen, which waits for the answer.
    FakeExchange &openSlowly() {
        auto &addresses = expectAddresses().held();
        begin();
        addresses.request();
        return addresses;
    }
    ComposeViewModel &message() { return *screen->viewModel; }
    std::optional<QString> error() const { return screen->viewModel->errorMessage; }
    void address() {
        screen->recipientsEdited(u"b@c"_qs);
        message().subject = u"S"_qs;
    }

    QByteArray contactsJSON = R"({"contacts": [{"_id": "1", "email": "Ada@example.test", "name": "Ada L."},
        {"_id": "2", "email": "bob@example.test"}, {"_id": "3", "email": "eve@other.test", "name": "Eva"}]})";
    std::shared_ptr<ComposeState> screen;
};

inline EmailDetail answeredLetter() {
    return {.uid = 7,
            .subject = u"Lunch"_qs,
            .from = std::vector{EmailAddress{.name = u"Ada"_qs, .address = u"ada@a"_qs}},
            .to = std::vector{EmailAddress{.email = u"me@a"_qs}, EmailAddress{.email = u"bob@b"_qs}},
            .body_html = u"<p>Hi</p>"_qs,
            .attachments = std::vector{EmailAttachment{.filename = u"old.pdf"_qs, .size = 5}},
            .folder = u"INBOX"_qs};
}
