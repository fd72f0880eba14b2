#include "Chapters.h"
#include "RawServer.h"
#include "Report.h"
#include "mail/EmailRecords.h"
#include "net/SSEParser.h"

#include <QElapsedTimer>

using namespace Qt::StringLiterals;

namespace {

constexpr int runs = 15;
constexpr int megabyte = 1 << 20; // bytes

double milliseconds(const QElapsedTimer &timer) {
    return double(timer.nsecsElapsed()) / 1e6;
}

void measureDecoding(const RawServer &server) {
    const auto page = server.get("/api/emails/list?folder=INBOX&page=3&per_page=50");
    Series series;
    for (int run = 0; run < runs; ++run) {
        QElapsedTimer timer;
        timer.start();
        const auto decoded = decodeJSONText<EmailListResponse>(page);
        series.add(milliseconds(timer));
        if (decoded.emails.size() != 50)
            throw std::runtime_error("the page is not whole");
    }
    Report::add(u"Decoding a page of 50 rows (off the main thread)"_s, series, u"ms"_s, {1});
}

QByteArray ordinaryEvents(qsizetype size) {
    const auto event = "event: mailbox_state\ndata: {\"folder\":\"INBOX\",\"total\":10040,\"unseen\":1020,"
                       "\"unread_uids\":[10040,10039,10036,10035,10032,10031],\"uid_validity\":1}\n\n"_ba;
    return event.repeated(size / event.size());
}

QByteArray hugeEvent(qsizetype size) {
    return "event: folders_updated\ndata: {\"folders\":\""_ba + QByteArray(size, 'x') + "\"}\n\n"_ba;
}

/// Milliseconds that the parser takes for the stream, cut into chunks.
double parsingTime(const QByteArray &stream, qsizetype chunkSize) {
    SSEParser parser;
    std::size_t events = 0;
    QElapsedTimer timer;
    timer.start();
    for (qsizetype start = 0; start < stream.size(); start += chunkSize)
        events += parser.append(stream.mid(start, chunkSize)).size();
    const auto time = milliseconds(timer);
    if (events == 0)
        throw std::runtime_error("no event came out");
    return time;
}

void measureStream() {
    constexpr int size = 20; // MB
    const auto stream = ordinaryEvents(size * megabyte);
    Series rate;
    for (int run = 0; run < runs; ++run)
        rate.add(size * 1000 / parsingTime(stream, 4096));
    Report::add(u"Event stream, chunks of 4 KB"_s, rate, u" MB/s"_s, {50, true});
}

void measureHugeEvent() {
    const auto ten = hugeEvent(10 * megabyte), twenty = hugeEvent(20 * megabyte);
    Series time, growth;
    for (int run = 0; run < runs; ++run) {
        time.add(parsingTime(ten, 1024));
        growth.add(parsingTime(twenty, 1024) / parsingTime(ten, 1024));
    }
    Report::add(u"One event of 10 MB in chunks of 1 KB"_s, time, u"ms"_s, {200});
    Report::add(u"  how much longer one of 20 MB takes"_s, growth, u" times"_s, {2.4});
}

} // namespace

void measureParsing(const RawServer &server) {
    measureDecoding(server);
    measureStream();
    measureHugeEvent();
}
