#include "MessageReader.h"

#include "MainThread.h"
#include "PaintWatch.h"
#include "driver/AppDriver.h"
#include "mail/screens/EmailDetailView.h"
#include "mail/screens/EmailListView.h"
#include "mail/screens/PlainTextView.h"

#include <QElapsedTimer>
#include <QListView>
#include <QTest>

namespace {

constexpr int restTime = 500; // milliseconds

} // namespace

MessageReader::MessageReader(AppDriver &driver)
    : m_driver(driver)
    , m_list(driver.mainScreen().listView()->list())
    , m_detail(driver.mainScreen().detailView()) {
    connect(m_detail, &EmailDetailView::bodyPainted, this, [this] { m_isPagePainted = true; });
}

void MessageReader::startAt(int row) {
    m_list->setFocus();
    m_list->setCurrentIndex({});
    m_list->setCurrentIndex(m_list->model()->index(row, 0));
    MainThread::run(restTime);
}

double MessageReader::openNext() {
    const auto current = m_list->currentIndex();
    const auto uid = current.siblingAtRow(current.row() - 1).data(Qt::UserRole).toLongLong();
    auto *text = m_detail->findChild<PlainTextView *>();
    const PaintWatch textWatch(text, [&] { return isLoaded(uid) && text->isVisible(); });
    m_isPagePainted = false;
    QElapsedTimer timer;
    timer.start();
    QTest::keyClick(m_list, Qt::Key_Up);
    MainThread::runUntil([&] { return isLoaded(uid) && (showsPage() ? m_isPagePainted : textWatch.isPainted()); });
    const auto milliseconds = double(timer.nsecsElapsed()) / 1e6;
    MainThread::run(restTime);
    return milliseconds;
}

bool MessageReader::showsPage() const {
    return m_driver.mainScreen().detailState().body() == EmailDetailState::Body::html;
}

bool MessageReader::isLoaded(qint64 uid) const {
    const auto &email = m_driver.mainScreen().detailState().viewModel->email.get();
    return email && email->uid == uid;
}
