#pragma once

#include "app/AppStateFixture.h"
#include "mail/MailAnswers.h"
#include "mail/screens/EmailListView.h"
#include "screens/ScreenTest.h"
#include "screens/Widgets.h"
#include "ui/screens/SearchBar.h"

#include <QBuffer>
#include <QListView>
#include <QTest>

/// A message list on screen, over a scripted server.
class ListScreen : public ScreenTest, protected AppStateFixture {
protected:
    void SetUp() override {
        server.expect("GET", "/api/emails/cached?folder=Work&page=1&per_page=50").answer(500).anyNumberOfTimes();
        server.expect("GET", "/api/folders/cached").answer(500).anyNumberOfTimes();
        list = EmailListState::make(state);
        view = std::make_unique<EmailListView>(list, actions);
        view->resize(360, 600);
        showActive(*view);
    }
    void TearDown() override {
        settle();
        view.reset();
        list.reset();
        state.reset();
        ScreenTest::TearDown();
    }

    FakeExchange &expectPage(int page = 1, const QByteArray &rest = {}) {
        return server.expect("GET",
                             "/api/emails/list?folder=Work&page=" + QByteArray::number(page) + "&per_page=50" + rest);
    }
    void open(const std::vector<qint64> &uids, int total = 2, int pages = 1) {
        expectPage().json(pageJSON(emptyEmails(uids), total, pages));
        list->setFolder({.path = QStringLiteral("Work"), .name = QStringLiteral("Work")});
        settle();
    }
    void reload(const std::vector<qint64> &uids) {
        expectPage().json(pageJSON(emptyEmails(uids)));
        list->reload();
        settle();
    }
    void expectPicture(const QByteArray &domain) {
        QImage picture(64, 64, QImage::Format_RGB32);
        picture.fill(pictureColor);
        QByteArray bytes;
        QBuffer buffer(&bytes);
        picture.save(&buffer, "BMP");
        server
            .expect("GET", "/faviconV2?client=SOCIAL&type=FAVICON&fallback_opts=TYPE,SIZE,URL&url=https://" + domain +
                               "&size=64")
            .answer(200, bytes);
    }
    /// Whether the row has such a picture in place of initials.
    bool showsPicture(int row) const {
        const auto frame = rows().visualRect(rows().model()->index(row, 0));
        return rows().viewport()->grab(frame).toImage().pixelColor(44, 28) == pictureColor;
    }
    QListView &rows() const { return *view->list(); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(&rows(), key, modifiers); }
    void click(int row, Qt::KeyboardModifiers modifiers = {}) {
        QTest::mouseClick(rows().viewport(), Qt::LeftButton, modifiers,
                          rows().visualRect(rows().model()->index(row, 0)).center());
    }
    const std::set<qint64> &selected() const { return *list->viewModel->selectedEmails; }
    qint64 currentUID() const { return list->rows.row(rows().currentIndex().row()).uid; }
    SearchBar *search() const { return view->findChild<SearchBar *>(); }

    const QColor pictureColor = QColor(12, 200, 34);
    ManualClock clock;
    std::shared_ptr<EmailListState> list;
    FocusedActions actions;
    std::unique_ptr<EmailListView> view;
};
