#include "web/MailColumn.h"
#include "web/TrackingServer.h"

#include <QDir>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class RemoteContentTest : public testing::Test {
protected:
    /// Whatever a message before this one was going to ask for has been asked for when this has arrived.
    void waitForSentinel() {
        column.show(u"<img src=%1>"_s.arg(server.url(u"127.0.0.1"_s, u"/sentinel.png"_s)), true);
        ASSERT_TRUE(spinUntil([&] { return server.wasAskedFor(u"/sentinel.png"_s); }));
        server.paths.removeAll(u"/sentinel.png"_s);
    }

    TrackingServer server;
    MailColumn column;
};

} // namespace

TEST_F(RemoteContentTest, NamesAreLookedUpOnceImagesAreShown) {
    column.show(u"<img src=%1>"_s.arg(server.url(u"positive-control.test"_s, u"/x.png"_s)), true);
    EXPECT_TRUE(spinUntil([] { return lookedUpNames().contains(u"positive-control.test"_s); }));
}

TEST_F(RemoteContentTest, RequestsTellNothingOfTheReader) {
    const auto html = u"<img src=%1>"_s;
    column.show(html.arg(server.url(u"127.0.0.1"_s, u"/first.png"_s)), true);
    ASSERT_TRUE(spinUntil([&] { return server.wasAskedFor(u"/first.png"_s); }));
    column.show(html.arg(server.url(u"127.0.0.1"_s, u"/second.png"_s)), true);
    ASSERT_TRUE(spinUntil([&] { return server.wasAskedFor(u"/second.png"_s); }));
    for (const auto &request : server.headers) {
        EXPECT_FALSE(request.contains(u"\r\nReferer:"_s, Qt::CaseInsensitive)) << qPrintable(request);
        EXPECT_FALSE(request.contains(u"\r\nCookie:"_s, Qt::CaseInsensitive)) << qPrintable(request);
    }
}

TEST_F(RemoteContentTest, InlineImagesShowWithoutAnyRequest) {
    column.show(
        u"<p style='height:400px;background:url(\"data:image/svg+xml,<svg xmlns=%27http://www.w3.org/2000/svg%27 "
        "width=%2720%27 height=%2720%27><rect width=%2720%27 height=%2720%27 fill=%27%2300ff00%27/></svg>\")'>"_s);
    EXPECT_TRUE(column.waitForColor({400, 300}, QColor(0, 255, 0)));
    EXPECT_EQ(server.connections, 0);
}

TEST_F(RemoteContentTest, LocalFilesAreOutOfReach) {
    QFile image(QDir::temp().filePath(u"corvanite-local-file-test.svg"_s));
    ASSERT_TRUE(image.open(QIODevice::WriteOnly));
    image.write("<svg xmlns='http://www.w3.org/2000/svg' width='20' height='20'>"
                "<rect width='20' height='20' fill='#ff0000'/></svg>");
    image.close();
    const auto html = u"<p style='height:300px;background:#00ff00 url(file://%1)'>x"_s.arg(image.fileName());
    column.show(html, true);
    EXPECT_TRUE(column.waitForColor({400, 300}, QColor(0, 255, 0)));
    waitForSentinel();
    column.show(html, true);
    EXPECT_NE(column.seen({400, 300}), QColor(255, 0, 0));
    image.remove();
}
