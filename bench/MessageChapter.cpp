#include "BlockWatch.h"
#include "Chapters.h"
#include "Mailbox.h"
#include "MainThread.h"
#include "PaintWatch.h"
#include "Report.h"
#include "driver/AppDriver.h"
#include "mail/screens/EmailDetailView.h"
#include "mail/screens/EmailListView.h"
#include "mail/screens/PlainTextView.h"

#include <QElapsedTimer>
#include <QListView>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr int messages = 30;
constexpr int restTime = 500; // milliseconds

class MessageBench {
public:
    explicit MessageBench(AppDriver &driver)
        : m_driver(driver)
        , m_list(driver.mainScreen().listView()->list())
        , m_detail(driver.mainScreen().detailView()) {
        QObject::connect(m_detail, &EmailDetailView::bodyPainted, m_detail, [this] { m_isPagePainted = true; });
    }

    void run() {
        m_list->setFocus();
        m_list->setCurrentIndex({});
        m_list->setCurrentIndex(m_list->model()->index(messages, 0));
        MainThread::run(restTime);
        BlockWatch::restart();
        for (int opened = 0; opened < messages; ++opened)
            openNext();
        Report::add(u"Message in plain text, key press to painted"_s, m_plain, u"ms"_s, {40});
        Report::add(u"Message of 20 KB of HTML, key press to painted"_s, m_html, u"ms"_s, {80});
        Series block;
        block.add(BlockWatch::longest());
        Report::add(u"Longest block of the main thread in these"_s, block, u"ms"_s, {16});
    }

private:
    bool isLoaded(qint64 uid) const {
        const auto &email = m_driver.mainScreen().detailState().viewModel->email.get();
        return email && email->uid == uid;
    }

    bool showsPage() const { return m_driver.mainScreen().detailState().body() == EmailDetailState::Body::html; }

    /// Goes up, from older messages to newer ones.
    void openNext() {
        const auto uid = m_list->currentIndex().siblingAtRow(m_list->currentIndex().row() - 1).data(Qt::UserRole);
        auto *text = m_detail->findChild<PlainTextView *>();
        const PaintWatch textWatch(text, [&] { return isLoaded(uid.toLongLong()) && text->isVisible(); });
        m_isPagePainted = false;
        QElapsedTimer timer;
        timer.start();
        QTest::keyClick(m_list, Qt::Key_Up);
        MainThread::runUntil(
            [&] { return isLoaded(uid.toLongLong()) && (showsPage() ? m_isPagePainted : textWatch.isPainted()); });
        (showsPage() ? m_html : m_plain).add(double(timer.nsecsElapsed()) / 1e6);
        MainThread::run(restTime);
    }

    AppDriver &m_driver;
    QListView *m_list;
    EmailDetailView *m_detail;
    bool m_isPagePainted = false;
    Series m_plain, m_html;
};

} // namespace

void measureMessages(AppDriver &driver) {
    MessageBench(driver).run();
}
