#include "BlockWatch.h"
#include "Chapters.h"
#include "Mailbox.h"
#include "MainThread.h"
#include "PeakMemory.h"
#include "RawServer.h"
#include "Report.h"
#include "driver/AppDriver.h"
#include "mail/screens/AttachmentDragView.h"
#include "mail/screens/AttachmentSection.h"
#include "mail/screens/EmailDetailView.h"

#include <QElapsedTimer>
#include <QTest>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr int runs = 10;
constexpr int restTime = 500; // milliseconds

class AttachmentBench {
public:
    AttachmentBench(AppDriver &driver, const RawServer &server)
        : m_server(server)
        , m_detail(driver.mainScreen().detailView())
        , m_email(*driver.mainScreen().detailState().viewModel->email.get())
        , m_downloads(m_detail->findChild<AttachmentSection *>()->downloads()) {
        // What is measured ends where the panel would begin.
        QObject::disconnect(m_downloads.get(), &AttachmentDownloads::savePanelRequested, nullptr, nullptr);
        QObject::connect(m_downloads.get(), &AttachmentDownloads::savePanelRequested, m_detail,
                         [this](const QString &, const QByteArray &bytes) { m_receivedBytes = bytes.size(); });
    }

    void run() {
        for (int run = 0; run < runs; ++run)
            download();
        const double server = serverTime();
        Report::add(u"File of %1 MB, click to save panel, the server's %2 ms included"_s.arg(Mailbox::fileSize)
                        .arg(server, 0, 'f', 1),
                    m_time, u"ms"_s, {server + 100});
        Report::add(u"Peak of the memory above what was held before"_s, m_memory, u"MB"_s, {3.0 * Mailbox::fileSize});
        Report::add(u"Longest block of the main thread in these"_s, m_block, u"ms"_s, {16});
    }

private:
    void download() {
        auto *row = m_detail->findChild<AttachmentDragView *>();
        m_receivedBytes = 0;
        const double before = PeakMemory::restart();
        BlockWatch::restart();
        QElapsedTimer timer;
        timer.start();
        QTest::mouseClick(row, Qt::LeftButton);
        MainThread::runUntil([this] { return m_receivedBytes > 0; });
        m_time.add(double(timer.nsecsElapsed()) / 1e6);
        m_block.add(BlockWatch::longest());
        m_memory.add(PeakMemory::value() - before);
        if (m_receivedBytes != Mailbox::fileSize << 20)
            throw std::runtime_error("the file did not come whole");
        MainThread::run(restTime);
    }

    double serverTime() const {
        const auto part = m_email.attachments->front().partQueryValue().toUtf8();
        const auto path = "/api/emails/attachment?folder=" + Mailbox::fileFolder().toUtf8() +
                          "&uid=" + QByteArray::number(m_email.uid) + "&part=" + part;
        Series series;
        for (int run = 0; run < runs; ++run) {
            QElapsedTimer timer;
            timer.start();
            m_server.get(path);
            series.add(double(timer.nsecsElapsed()) / 1e6);
        }
        return series.median();
    }

    const RawServer &m_server;
    EmailDetailView *m_detail;
    const EmailDetail m_email;
    std::shared_ptr<AttachmentDownloads> m_downloads;
    qint64 m_receivedBytes = 0;
    Series m_time, m_memory, m_block;
};

} // namespace

void measureAttachment(AppDriver &driver, const RawServer &server) {
    driver.selectFolder(Mailbox::fileFolder());
    driver.openRow(0);
    MainThread::run(restTime);
    AttachmentBench(driver, server).run();
}
