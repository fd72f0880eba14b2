#pragma once

#include "platform/Tasks.h"
#include "screens/ScreenTest.h"
#include "screens/Widgets.h"
#include "support/FakeServer.h"
#include "ui/screens/RowsView.h"
#include "ui/screens/Sheet.h"
#include "ui/screens/SwipeTrack.h"

#include <QMenu>
#include <QTest>
#include <QWheelEvent>

/// A section with a list of rows on screen, over a scripted server.
class SectionScreen : public ScreenTest {
protected:
    void SetUp() override { server.makeCurrent(); }
    void TearDown() override {
        settle();
        section.reset();
        ScreenTest::TearDown();
    }

    void show(std::unique_ptr<QWidget> screen) {
        section = std::move(screen);
        section->resize(700, 500);
        showActive(*section);
        settle();
    }
    /// Lets tasks end, everybody hear of it, and the window that is in front have the keyboard.
    void settle() {
        EXPECT_TRUE(spinUntil([] { return launchedTaskCount() == 0; }));
        for (int turn = 1; turn <= 3; ++turn)
            deliverQueuedEvents();
        auto *front = sheet() ? static_cast<QWidget *>(sheet()) : section.get();
        if (front && !front->isActiveWindow() && !menu())
            showActive(*front);
    }
    RowsView &rows() const { return *section->findChild<RowsView *>(); }
    SwipeTrack &track() const { return *section->findChild<SwipeTrack *>(); }
    QString current() const { return rows().currentIndex().data().toString(); }
    QPoint place(int row) const { return rows().visualRect(rows().model()->index(row, 0)).center(); }
    void click(int row) { QTest::mouseClick(rows().viewport(), Qt::LeftButton, {}, place(row)); }
    /// Presses a key where the keyboard is.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        settle();
    }
    void type(const QString &text) {
        for (const auto letter : text)
            QTest::keyClicks(QApplication::focusWidget(), letter);
        settle();
    }
    void push(int row, int distance, Qt::ScrollPhase phase) {
        QWheelEvent event(place(row), rows().viewport()->mapToGlobal(place(row)), {distance, 0}, {distance * 3, 0},
                          Qt::NoButton, Qt::NoModifier, phase, false);
        QCoreApplication::sendEvent(rows().viewport(), &event);
    }
    void swipe(int row, int distance) {
        push(row, 0, Qt::ScrollBegin);
        push(row, distance, Qt::ScrollUpdate);
        push(row, 0, Qt::ScrollEnd);
    }
    Sheet *sheet() const {
        if (!section)
            return nullptr;
        for (auto *candidate : section->findChildren<Sheet *>())
            if (candidate->isVisible())
                return candidate;
        return nullptr;
    }
    QMenu *menu() const {
        if (!section)
            return nullptr;
        for (auto *candidate : section->findChildren<QMenu *>())
            if (candidate->isVisible())
                return candidate;
        return nullptr;
    }
    QStringList menuTexts() const {
        QStringList texts;
        for (const auto *action : menu()->actions())
            if (!action->isSeparator())
                texts.append(action->text());
        return texts;
    }
    template <typename T> T *named(const QString &name) const { return visibleNamed<T>(*section, name); }

    FakeServer server;
    std::unique_ptr<QWidget> section;
};
