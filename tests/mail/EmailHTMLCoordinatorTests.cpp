#include "mail/EmailHTMLCoordinator.h"

#include "support/CoreTest.h"

#include <QThreadPool>

using namespace Qt::StringLiterals;

namespace {

ThemeDefinition theme(const QString &id) {
    ThemeDefinition definition;
    definition.id = id;
    definition.bgWhite = Qt::white;
    return definition;
}

class EmailHTMLCoordinatorTest : public CoreTest {
protected:
    EmailHTMLCoordinatorTest() {
        QObject::connect(&coordinator, &EmailHTMLCoordinator::loadRequested,
                         [this](const QByteArray &page, bool) { pages.append(page); });
        QObject::connect(&coordinator, &EmailHTMLCoordinator::contentHeightChanged,
                         [this](qreal height) { heights.append(height); });
    }

    void update(const QString &html, const QString &themeID = u"light"_s, bool showImages = false) {
        coordinator.update({html, theme(themeID), showImages});
    }

    void settle() {
        QThreadPool::globalInstance()->waitForDone();
        QCoreApplication::processEvents();
    }

    EmailHTMLCoordinator coordinator;
    QList<QByteArray> pages;
    QList<qreal> heights;
};

} // namespace

TEST_F(EmailHTMLCoordinatorTest, LoadsOncePerChange) {
    update(u"one"_s);
    update(u"one"_s);
    settle();
    update(u"one"_s);
    settle();
    ASSERT_EQ(pages.size(), 1);
    EXPECT_TRUE(pages.first().contains("<body>one</body>"));
}

TEST_F(EmailHTMLCoordinatorTest, ShowingImagesLoadsTheSameBodyAgain) {
    update(u"one"_s);
    settle();
    update(u"one"_s, u"light"_s, true);
    settle();
    EXPECT_EQ(pages.size(), 2);
}

TEST_F(EmailHTMLCoordinatorTest, ThemesThatMakeTheSamePageLoadOnce) {
    update(u"one"_s, u"light"_s);
    settle();
    update(u"one"_s, u"light-too"_s);
    settle();
    EXPECT_EQ(pages.size(), 1);
}

TEST_F(EmailHTMLCoordinatorTest, OnlyTheNewestOfTwoBodiesIsLoaded) {
    update(QString(2'000'000, u'x'));
    update(u"two"_s);
    settle();
    ASSERT_EQ(pages.size(), 1);
    EXPECT_TRUE(pages.first().contains("<body>two</body>"));
}

TEST_F(EmailHTMLCoordinatorTest, ReloadAsksForTheSamePage) {
    coordinator.reload();
    EXPECT_TRUE(pages.isEmpty());
    update(u"one"_s);
    settle();
    coordinator.reload();
    ASSERT_EQ(pages.size(), 2);
    EXPECT_EQ(pages[0], pages[1]);
}

TEST_F(EmailHTMLCoordinatorTest, LoadsABodyAgainThatWasForgotten) {
    update(u"one"_s);
    coordinator.forget();
    settle();
    EXPECT_TRUE(pages.isEmpty());
    update(u"one"_s);
    settle();
    coordinator.forget();
    update(u"one"_s);
    settle();
    EXPECT_EQ(pages.size(), 2);
}

TEST_F(EmailHTMLCoordinatorTest, HeightsAreNumbersOfAtLeastAHundredThatMoveByMoreThanOne) {
    for (const auto &value :
         {QVariant(40), QVariant(u"500"_s), QVariant(true), QVariant(), QVariant(qQNaN()), QVariant(qInf()),
          QVariant(101), QVariant(101.5), QVariant(102.5), QVariant(103), QVariant(1'000'000), QVariant(-5)})
        coordinator.receiveHeight(value);
    EXPECT_EQ(heights, (QList<qreal>{101.5, 103, 1'000'000, 100}));
    EXPECT_EQ(coordinator.contentHeight(), 100);
}
