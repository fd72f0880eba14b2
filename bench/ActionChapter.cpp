#include "BlockWatch.h"
#include "Chapters.h"
#include "MainThread.h"
#include "PaintWatch.h"
#include "RawServer.h"
#include "Report.h"
#include "driver/AppDriver.h"
#include "mail/screens/EmailListView.h"

#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QListView>
#include <QTest>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int runs = 20;
constexpr int restTime = 500; // milliseconds
constexpr int movedRow = 3;
/// A page of messages that the list does not show; for the server's own time.
constexpr int otherPage = 100;

class ActionBench {
public:
    ActionBench(AppDriver &driver, const RawServer &server)
        : m_driver(driver)
        , m_server(server)
        , m_list(driver.mainScreen().listView()->list()) {}

    void run() {
        m_list->setFocus();
        measureMoves();
        measureFlags();
    }

private:
    EmailListState &state() { return m_driver.mainScreen().listState(); }

    void measureMoves() {
        Series time, block;
        for (int run = 0; run < runs; ++run) {
            m_list->setCurrentIndex(m_list->model()->index(movedRow, 0));
            MainThread::run(restTime);
            BlockWatch::restart();
            time.add(moveTime());
            MainThread::run(restTime);
            block.add(BlockWatch::longest());
        }
        const double server = serverMoveTime();
        Report::add(u"Row to the trash, key press to row gone, above the server's %1 ms"_s.arg(server, 0, 'f', 1),
                    above(server, time), u"ms"_s, {16});
        Report::add(u"Longest block of the main thread around it"_s, block, u"ms"_s, {16});
    }

    double moveTime() {
        const auto uid = state().rows.row(movedRow).uid;
        PaintWatch watch(m_list->viewport(), [&] { return state().rows.indexOf(uid) < 0; });
        QTest::keyClick(m_list, Qt::Key_Delete);
        return watch.waitForPaint();
    }

    void measureFlags() {
        Series time, block;
        for (int run = 0; run < runs; ++run) {
            BlockWatch::restart();
            QTest::keyClick(m_list, Qt::Key_A, Qt::ControlModifier);
            MainThread::run(restTime);
            time.add(flagTime(run % 2 == 0));
            MainThread::run(restTime);
            block.add(BlockWatch::longest());
        }
        const double server = serverFlagTime();
        Report::add(u"50 rows flagged, keys to painted, above the server's %1 ms"_s.arg(server, 0, 'f', 1),
                    above(server, time), u"ms"_s, {16});
        Report::add(u"Longest block of the main thread, from selecting all on"_s, block, u"ms"_s, {16});
    }

    double flagTime(bool value) {
        PaintWatch watch(m_list->viewport(), [&] { return isFlagged(value); });
        QTest::keyClick(m_list, Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier);
        return watch.waitForPaint();
    }

    bool isFlagged(bool value) {
        for (int row = 0; row < state().rows.rowCount(); ++row)
            if (state().rows.row(row).isFlagged != value)
                return false;
        return true;
    }

    static Series above(double server, const Series &series) {
        Series difference;
        for (const auto value : series.values())
            difference.add(value - server);
        return difference;
    }

    double serverMoveTime() {
        const auto uids = otherUIDs();
        Series series;
        for (int run = 0; run < runs; ++run)
            series.add(postTime("/api/emails/bulk-delete", {{u"uids"_s, QJsonArray{uids[run]}},
                                                            {u"folder"_s, u"INBOX"_s},
                                                            {u"permanent"_s, false},
                                                            {u"to_folder"_s, u"Trash"_s}}));
        return series.median();
    }

    double serverFlagTime() {
        const auto uids = otherUIDs();
        Series series;
        for (int run = 0; run < runs; ++run)
            series.add(postTime(
                "/api/emails/bulk-flag",
                {{u"uids"_s, uids}, {u"folder"_s, u"INBOX"_s}, {u"flag"_s, u"flagged"_s}, {u"set"_s, run % 2 == 0}}));
        return series.median();
    }

    /// A change is made once the server has made it and told the folder's new state.
    double postTime(const QByteArray &path, const QJsonObject &body) {
        const auto text = QJsonDocument(body).toJson();
        QElapsedTimer timer;
        timer.start();
        m_server.post(path, text);
        m_server.get("/api/emails/notification-state?folder=INBOX");
        const auto milliseconds = double(timer.nsecsElapsed()) / 1e6;
        // The program reads the list again after each change, which is not to disturb the next.
        MainThread::run(restTime);
        return milliseconds;
    }

    QJsonArray otherUIDs() const {
        const auto path = "/api/emails/list?folder=INBOX&page=" + QByteArray::number(otherPage) + "&per_page=50";
        QJsonArray uids;
        for (const auto &email : decodeJSONText<EmailListResponse>(m_server.get(path)).emails)
            uids.append(email.uid);
        return uids;
    }

    AppDriver &m_driver;
    const RawServer &m_server;
    QListView *m_list;
};

} // namespace

void measureActions(AppDriver &driver, const RawServer &server) {
    driver.selectFolder(u"INBOX"_s);
    ActionBench(driver, server).run();
}
