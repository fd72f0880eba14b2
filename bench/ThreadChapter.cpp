#include "BlockWatch.h"
#include "Chapters.h"
#include "Mailbox.h"
#include "MessageReader.h"
#include "Report.h"
#include "SlowSearchProxy.h"
#include "driver/AppDriver.h"
#include "platform/UserDefaults.h"

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr int searchTime = 400; // milliseconds

/// The times of one kind of body.
struct BodyTimes {
    Series afterQuickSearch, afterSlowSearch;

    void report(const QString &body, double target) const {
        Report::add(body + u" of a thread, its search at once"_s, afterQuickSearch, u"ms"_s, {target});
        Report::add(body + u" of a thread, its search after %1 ms"_s.arg(searchTime), afterSlowSearch, u"ms"_s,
                    {target});
    }
};

void setServer(const QString &address) {
    UserDefaults::standard().set(u"serverURL"_s, address);
}

} // namespace

void measureThreads(AppDriver &driver, const QString &serverAddress) {
    SlowSearchProxy proxy(serverAddress);
    setServer(proxy.address());
    if (!driver.selectFolder(Mailbox::threadFolder()))
        throw std::runtime_error("the folder with the thread does not show");
    MessageReader reader(driver);
    BodyTimes plain, html;
    Series block;
    constexpr int messages = Mailbox::threadMessages - 1;
    reader.startAt(messages);
    BlockWatch::restart();
    for (int opened = 0; opened < messages; ++opened) {
        // Two of a kind of search follow each other, since the kinds of body take turns.
        const bool isSlow = opened % 4 >= 2;
        proxy.setDelay(isSlow ? searchTime : 0);
        const auto time = reader.openNext();
        auto &times = reader.showsPage() ? html : plain;
        (isSlow ? times.afterSlowSearch : times.afterQuickSearch).add(time);
    }
    block.add(BlockWatch::longest());
    setServer(serverAddress);
    plain.report(u"Plain text"_s, 40);
    html.report(u"20 KB of HTML"_s, 80);
    Report::add(u"Longest block of the main thread in these"_s, block, u"ms"_s, {16});
}
