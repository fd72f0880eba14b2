#include "web/MailColumn.h"
#include "web/TrackingServer.h"

#include <QDir>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// One way by which a mail can try to load something. `html` holds "URL/" where the address of the server belongs.
struct Vector {
    const char *name;
    const char *html;
    /// The request that is to come once images are shown; null when none may ever come.
    const char *afterShowImages;
};

#define LOOK_UPS "<meta http-equiv=x-dns-prefetch-control content=on><a href=URL/prefetch.html>x</a>"

constexpr Vector vectors[] = {
    {"img", "<img src=URL/img.png>", "/img.png"},
    {"srcset", "<img srcset='URL/srcset.png 1x'>", "/srcset.png"},
    {"picture", "<picture><source srcset=URL/picture.png><img></picture>", "/picture.png"},
    {"input", "<input type=image src=URL/input.png>", "/input.png"},
    {"bodyBackground", "<body background=URL/bodybackground.png>", nullptr},
    {"tableBackground", "<table background=URL/table.png><tr><td>x</table>", "/table.png"},
    {"inlineStyle", "<p style='background:url(URL/inline.png)'>x", "/inline.png"},
    {"styleRule", "<style>p{background-image:url(URL/rule.png)}</style><p>x", "/rule.png"},
    {"listStyle", "<ul style='list-style-image:url(URL/bullet.png)'><li>x</ul>", "/bullet.png"},
    {"content", "<style>p:before{content:url(URL/content.png)}</style><p>x", "/content.png"},
    {"cursor", "<p style='cursor:url(URL/cursor.png),auto'>x", "/cursor.png"},
    {"imageSet", "<p style='background:-webkit-image-set(url(URL/imageset.png) 1x)'>x", "/imageset.png"},
    {"mask", "<p style='-webkit-mask-image:url(URL/mask.png)'>x", "/mask.png"},
    {"border", "<p style='border:9px solid;border-image:url(URL/border.png) 9'>x", "/border.png"},
    {"variable", "<style>:root{--u:url(URL/variable.png)}p{background:var(--u)}</style><p>x", "/variable.png"},
    {"import", "<style>@import url(URL/import.css);</style>", "/import.css"},
    {"importedImport", "<style>@import url(URL/chain.css);</style>", "/imported-bychain.css"},
    {"styleSheet", "<link rel=stylesheet href=URL/sheet.css>", "/sheet.css"},
    {"font", "<style>@font-face{font-family:f;src:url(URL/font.woff)}p{font-family:f}</style><p>x", "/font.woff"},
    {"svgImage", "<svg><image href=URL/svgimage.png width=9 height=9 /></svg>", "/svgimage.png"},
    {"svgXlink", "<svg><image xlink:href=URL/xlink.png width=9 height=9 /></svg>", "/xlink.png"},
    {"svgUse", "<svg><use href='URL/use.svg#a'/></svg>", nullptr},
    {"svgFilter", "<p style='filter:url(URL/filter.svg#a)'>x", nullptr},
    {"svgFeImage",
     "<svg><filter id=f><feImage href=URL/feimage.png /></filter><rect width=9 height=9 "
     "filter='url(#f)'/></svg>",
     "/feimage.png"},
    {"video", "<video src=URL/video.mp4 preload=auto></video>", "/video.mp4"},
    {"poster", "<video poster=URL/poster.png></video>", "/poster.png"},
    {"audio", "<audio src=URL/audio.mp3 preload=auto></audio>", "/audio.mp3"},
    {"source", "<video preload=auto><source src=URL/source.mp4></video>", "/source.mp4"},
    {"track", "<video src='data:video/mp4,'><track default src=URL/track.vtt></video>", nullptr},
    {"preconnect", "<link rel=preconnect href=URL/>", nullptr},
    {"dnsPrefetch", "<link rel=dns-prefetch href=URL/><a href=URL/prefetch.html>x</a>", nullptr},
    {"lookUps", LOOK_UPS, nullptr},
    {"lookUpsInFrame", "<iframe srcdoc='" LOOK_UPS "'></iframe>", nullptr},
    {"lookUpsInSandbox", "<iframe sandbox srcdoc='" LOOK_UPS "'></iframe>", nullptr},
    {"lookUpsInObject", "<object type=text/html data='data:text/html," LOOK_UPS "'></object>", nullptr},
    {"lookUpsInEmbed", "<embed type=text/html src='data:text/html," LOOK_UPS "'>", nullptr},
    {"lookUpsInSVG",
     "<svg><foreignObject><iframe xmlns=http://www.w3.org/1999/xhtml srcdoc='" LOOK_UPS
     "'></iframe></foreignObject></svg>",
     nullptr},
    {"prefetch", "<link rel=prefetch href=URL/prefetch.png>", nullptr},
    {"prerender", "<link rel=prerender href=URL/prerender.html>", nullptr},
    {"modulePreload", "<link rel=modulepreload href=URL/module.js>", nullptr},
    {"preloadScript", "<link rel=preload as=script href=URL/preload.js>", nullptr},
    {"preloadFetch", "<link rel=preload as=fetch crossorigin href=URL/preload.json>", nullptr},
    {"icon", "<link rel=icon href=URL/icon.png>", nullptr},
    {"appleIcon", "<link rel=apple-touch-icon href=URL/appleicon.png>", nullptr},
    {"manifest", "<link rel=manifest href=URL/manifest.json>", nullptr},
    {"frame", "<iframe src=URL/frame.html></iframe>", nullptr},
    {"sourceDocument", "<iframe srcdoc='<img src=URL/srcdoc.png>'></iframe>", nullptr},
    {"dataFrame", "<iframe src='data:text/html,<img src=URL/dataframe.png>'></iframe>", nullptr},
    {"frameSet", "<frameset><frame src=URL/frameset.html></frameset>", nullptr},
    {"object", "<object data=URL/object.html></object>", nullptr},
    {"objectImage", "<object type=image/png data=URL/object.png></object>", nullptr},
    {"embed", "<embed src=URL/embed.html>", nullptr},
    {"applet", "<applet code=URL/applet.class></applet>", nullptr},
    {"portal", "<portal src=URL/portal.html></portal>", nullptr},
    {"refresh", "<meta http-equiv=refresh content='0;url=URL/refresh.html'>", nullptr},
    {"base", "<base href=URL/><img src=based.png>", "/based.png"},
    {"script", "<script src=URL/script.js></script>", nullptr},
    {"moduleScript", "<script type=module src=URL/modulescript.js></script>", nullptr},
    {"inlineScript", "<script>new Image().src='URL/inlinescript.png';fetch('URL/fetch')</script>", nullptr},
    {"loadHandler",
     "<img src='data:image/gif;base64,R0lGODlhAQABAAAAACw=' onload=\"new Image().src='URL/onload.png'\" "
     "onerror=\"new Image().src='URL/onerror.png'\">",
     nullptr},
    {"svgScript", "<svg onload=\"new Image().src='URL/svgonload.png'\"><script>fetch('URL/svgscript')</script></svg>",
     nullptr},
    {"form", "<form action=URL/form.html><input name=a autofocus onfocus='form.submit()'></form>", nullptr},
    {"report",
     "<meta http-equiv=Content-Security-Policy content=\"img-src 'none'; report-uri URL/report\">"
     "<img src=data:image/png,>",
     nullptr},
    {"xslt", "<?xml-stylesheet href='URL/style.xsl'?>", nullptr},
    {"menuItem", "<menu type=context><menuitem icon=URL/menu.png></menu>", nullptr},
};

class RemoteContentTest : public testing::Test {
protected:
    static QString hostOf(const Vector &vector) { return QString::fromLatin1(vector.name).toLower() + u".test"_s; }
    QString mail(const Vector &vector) const {
        return QString::fromLatin1(vector.html).replace(u"URL/"_s, server.url(hostOf(vector), u"/"_s));
    }

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

TEST_F(RemoteContentTest, NothingIsAskedForBeforeImagesAreShown) {
    const auto namesBefore = lookedUpNames();
    for (const auto &vector : vectors)
        column.show(mail(vector));
    EXPECT_EQ(server.connections, 0) << qPrintable(server.paths.join(u' '));
    waitForSentinel();
    EXPECT_EQ(server.paths, QStringList());
    EXPECT_EQ(server.connections, 1);
    EXPECT_EQ(lookedUpNames().mid(namesBefore.size()), QStringList())
        << qPrintable(lookedUpNames().mid(namesBefore.size()).join(u' '));
}

TEST_F(RemoteContentTest, OnlyWhatDrawsIsAskedForOnceImagesAreShown) {
    for (const auto &vector : vectors) {
        SCOPED_TRACE(vector.name);
        server.paths.clear();
        column.show(mail(vector), true);
        if (vector.afterShowImages) {
            EXPECT_TRUE(spinUntil([&] { return server.wasAskedFor(QString::fromLatin1(vector.afterShowImages)); }));
        } else {
            waitForSentinel();
            EXPECT_EQ(server.paths, QStringList());
            EXPECT_FALSE(lookedUpNames().contains(hostOf(vector)));
        }
    }
}

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
