#pragma once

#include "app/AppState.h"
#include "notify/NotificationService.h"
#include "platform/Tasks.h"
#include "platform/UserDefaults.h"
#include "support/CoreTest.h"
#include "support/FakeServer.h"

/// The shared state over a scripted server, which lets the event stream and mail checks happen in the background.
class AppStateFixture {
protected:
    AppStateFixture()
        : stream(server.expect("GET", "/api/events").held().anyNumberOfTimes())
        , mailCheck(server.expect("GET", "/api/emails/list?folder=INBOX&page=1&per_page=100")
                        .answer(500)
                        .anyNumberOfTimes()) {
        server.expect("GET", "/api/chat/unread").answer(500).anyNumberOfTimes();
        server.makeCurrent();
        state = std::make_shared<AppState>();
    }

    ~AppStateFixture() {
        NotificationService::shared().forgetMailboxes();
        NotificationService::shared().resetBadges();
    }

    static bool tasksHaveEnded() {
        return spinUntil([] { return launchedTaskCount() == 0; });
    }
    /// Lets tasks end and everybody hear of it: a model tells its state, that a screen, and that the shared state.
    static void settle() {
        EXPECT_TRUE(tasksHaveEnded());
        for (int turn = 1; turn <= 4; ++turn)
            deliverQueuedEvents();
    }

    void beginSession(const QByteArray &userJSON = R"({"_id": "u1", "username": "anna"})") {
        state->didSignIn(decodeJSON<User>(parseJSON(userJSON)));
        stream.request();
        settle();
    }
    void receive(const QString &name, const QByteArray &json) { state->handleEvent(name, parseJSON(json).toObject()); }

    FakeServer server;
    FakeExchange &stream;
    /// The request that every mail check begins with.
    FakeExchange &mailCheck;
    std::shared_ptr<AppState> state;
};
