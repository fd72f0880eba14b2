#include "BlockWatch.h"
#include "Chapters.h"
#include "MainThread.h"
#include "PaintWatch.h"
#include "RawServer.h"
#include "Report.h"
#include "driver/AppDriver.h"
#include "mail/screens/EmailListView.h"

#include <QElapsedTimer>
#include <QListView>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr int runs = 20;
constexpr int restTime = 400; // milliseconds

class ListBench {
public:
    ListBench(AppDriver &driver, const RawServer &server)
        : m_driver(driver)
        , m_server(server)
        , m_list(driver.mainScreen().listView()->list()) {}

    void run() {
        BlockWatch::restart();
        measurePages();
        measureFolders();
        Series block;
        block.add(BlockWatch::longest());
        Report::add(u"Longest block of the main thread in these"_s, block, u"ms"_s, {16});
    }

private:
    EmailListState &state() { return m_driver.mainScreen().listState(); }

    static QByteArray path(const QByteArray &operation, const QByteArray &folder, int page) {
        return "/api/emails/" + operation + "?folder=" + folder + "&page=" + QByteArray::number(page) + "&per_page=50";
    }

    std::vector<EmailSummary> page(int number) {
        return decodeJSONText<EmailListResponse>(m_server.get(path("list", "INBOX", number))).emails;
    }

    void measurePages() {
        const std::vector pages{page(1), page(2)};
        Series series;
        for (int run = 0; run < runs; ++run) {
            const auto &wanted = pages[(run + 1) % 2];
            PaintWatch watch(m_list->viewport(), [&] { return state().rows.row(0).uid == wanted.front().uid; });
            state().viewModel->emails = wanted;
            series.add(watch.waitForPaint());
            MainThread::run(50);
        }
        Report::add(u"Showing a page of 50 rows, painting included"_s, series, u"ms"_s, {16});
    }

    double serverTime(const QByteArray &folder) {
        // The server knows a page only once it has listed the folder.
        m_server.get(path("list", folder, 1));
        Series series;
        for (int run = 0; run < runs; ++run) {
            QElapsedTimer timer;
            timer.start();
            m_server.get(path("cached", folder, 1));
            series.add(double(timer.nsecsElapsed()) / 1e6);
        }
        return series.median();
    }

    /// Milliseconds from the click on the folder to its rows on the display.
    double switchTime(const QString &folder) {
        auto *folders = m_driver.find<QListView>(u"Folders"_s);
        PaintWatch watch(m_list->viewport(), [&] {
            return state().viewModel->loadedFolder.get() == folder && state().rows.rowCount() > 0;
        });
        const auto row = rowOf(*folders->model(), folder == "INBOX"_L1 ? u"Inbox"_s : folder);
        QTest::mouseClick(folders->viewport(), Qt::LeftButton, {}, folders->visualRect(row).center());
        return watch.waitForPaint();
    }

    static QModelIndex rowOf(const QAbstractItemModel &model, const QString &name) {
        for (int row = 0; row < model.rowCount(); ++row)
            if (model.index(row, 0).data().toString() == name)
                return model.index(row, 0);
        throw std::runtime_error("a folder is missing");
    }

    void measureFolders() {
        const double inbox = serverTime("INBOX"), archive = serverTime("Archive");
        Series series;
        for (int run = 0; run < runs; ++run) {
            const bool toArchive = run % 2 == 0;
            series.add(switchTime(toArchive ? u"Archive"_s : u"INBOX"_s) - (toArchive ? archive : inbox));
            MainThread::run(restTime);
        }
        Report::add(
            u"Change of folder, click to rows, above the server's %1 ms"_s.arg((inbox + archive) / 2, 0, 'f', 1),
            series, u"ms"_s, {20});
    }

    AppDriver &m_driver;
    const RawServer &m_server;
    QListView *m_list;
};

} // namespace

void measureList(AppDriver &driver, const RawServer &server) {
    ListBench(driver, server).run();
}
