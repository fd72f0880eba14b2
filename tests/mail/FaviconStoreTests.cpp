#include "mail/FaviconStore.h"

#include "platform/Tasks.h"
#include "support/CoreTest.h"
#include "support/FakeServer.h"

#include <QBuffer>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

/// A picture that compresses badly, so that it is longer than what counts as none.
QByteArray picture(QSize size) {
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            image.setPixelColor(x, y, QColor((x * 37) % 256, (y * 91) % 256, (x * y) % 256));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

/// The store is the program's own, so each test asks for domains of its own.
class FaviconStoreTest : public CoreTest {
protected:
    void SetUp() override { server.makeCurrent(); }

    FakeExchange &expect(const QByteArray &domain) {
        return server.expect("GET", "/faviconV2?client=SOCIAL&type=FAVICON&fallback_opts=TYPE,SIZE,URL&url=https://" +
                                        domain + "&size=64");
    }
    /// Asks for the picture and waits for the answer.
    QImage fetched(const QString &domain) {
        store.icon(domain);
        EXPECT_TRUE(spinUntil([] { return launchedTaskCount() == 0; }));
        return store.icon(domain);
    }

    ManualClock clock;
    FakeServer server;
    FaviconStore &store = FaviconStore::shared();
};

/// An answer after which the domain is known to have no picture.
struct NoIconRow {
    const char *name;
    int status;
    QByteArray body;
};

class NoIcon : public FaviconStoreTest, public testing::WithParamInterface<NoIconRow> {};

const NoIconRow misses[] = {
    {"NotFound", 404, picture({20, 20})},
    {"Empty", 200, {}},
    {"HundredBytes", 200, QByteArray(100, 'x')},
    {"NoPicture", 200, QByteArray(400, 'x')},
    {"Vector", 200, "<svg xmlns='http://www.w3.org/2000/svg'>" + QByteArray(200, ' ') + "</svg>"},
    {"TooWide", 200, picture({1025, 2})}};

} // namespace

TEST_F(FaviconStoreTest, FetchesADomainOnceAndTellsOfIt) {
    auto &request = expect("one.example").answer(200, picture({128, 64}), "image/png");
    QStringList loaded;
    const auto connection =
        QObject::connect(&store, &FaviconStore::iconLoaded, [&](const QString &domain) { loaded.append(domain); });
    EXPECT_TRUE(store.icon(u"one.example"_s).isNull());
    EXPECT_EQ(fetched(u"one.example"_s).size(), QSize(64, 32));
    EXPECT_EQ(loaded, QStringList{u"one.example"_s});
    EXPECT_EQ(request.arrivals(), 1);
    server.assertSilence();
    QObject::disconnect(connection);
}

TEST_P(NoIcon, IsRemembered) {
    const auto domain = QByteArray(GetParam().name).toLower() + ".example";
    expect(domain).answer(GetParam().status, GetParam().body);
    EXPECT_TRUE(fetched(QString::fromLatin1(domain)).isNull());
    EXPECT_TRUE(fetched(QString::fromLatin1(domain)).isNull());
    server.assertSilence();
}

INSTANTIATE_TEST_SUITE_P(, NoIcon, testing::ValuesIn(misses), rowName);

TEST_F(FaviconStoreTest, ABrokenConnectionIsTriedAgainButNotAtOnce) {
    expect("again.example").closing();
    EXPECT_TRUE(fetched(u"again.example"_s).isNull());
    server.assertSilence();
    clock.advance(std::chrono::minutes(1));
    expect("again.example").answer(200, picture({16, 16}));
    EXPECT_FALSE(fetched(u"again.example"_s).isNull());
}

TEST_F(FaviconStoreTest, ADomainIsNothingButADomain) {
    expect("a%26b%2Fc").answer(404);
    EXPECT_TRUE(fetched(u"a&b/c"_s).isNull());
    EXPECT_TRUE(fetched(QString()).isNull());
}
