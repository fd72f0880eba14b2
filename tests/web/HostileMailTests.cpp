#include "web/HostileMail.h"
#include "web/MailColumn.h"
#include "web/TrackingServer.h"
#include "web/UnguardedEngine.h"

#include <QSet>
#include <gtest/gtest.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Turns green a while after the page was laid out: what it wanted to load by then has been asked for.
QString timerBar(int milliseconds) {
    return u"<style>@keyframes elapsed { to { background: #00ff00 } }</style>"
           "<div style='height:200px;background:#ff0000;animation:elapsed 0s %1ms forwards'></div>"_s.arg(milliseconds);
}

class HostileMailTest : public testing::Test {
protected:
    QString pageOf(const QList<HostileMail> &mails, const QString &run) const {
        if (mails.size() == 1)
            return htmlOf(mails.first(), run, server.serverPort());
        QString page;
        for (const auto &mail : mails)
            page += u"<div>%1</div>\n"_s.arg(htmlOf(mail, run, server.serverPort()));
        return page;
    }

    void showInMail(const QList<HostileMail> &mails, const QString &run, bool showImages) {
        column.show(timerBar(mails.size() > 1 ? 1500 : 300) + pageOf(mails, run), showImages);
        ASSERT_TRUE(column.waitForColor({400, 200}, QColor(0, 255, 0))) << mails.first().name;
    }

    static std::string called(const QString &run, Loading loading) {
        QStringList names;
        const auto hosts = lookedUpNames();
        for (const auto &mail : hostileMails())
            if (mail.loading == loading && hosts.contains(hostOf(mail, run)))
                names.append(QString::fromLatin1(mail.name));
        return names.join(u' ').toStdString();
    }
    static std::string silent(const QString &run, std::initializer_list<Loading> loadings) {
        QStringList names;
        const auto hosts = lookedUpNames();
        for (const auto &mail : hostileMails())
            if (std::ranges::count(loadings, mail.loading) && !hosts.contains(hostOf(mail, run)))
                names.append(QString::fromLatin1(mail.name));
        return names.join(u' ').toStdString();
    }

    TrackingServer server;
    MailColumn column;
};

} // namespace

TEST_F(HostileMailTest, CallsNobodyBeforeImagesAreShown) {
    const auto namesBefore = lookedUpNames().size();
    for (const auto &page : hostilePages())
        showInMail(page, u"before"_s, false);
    EXPECT_EQ(lookedUpNames().mid(namesBefore).join(u' ').toStdString(), "");
    EXPECT_EQ(server.connections, 0) << qPrintable(server.paths.join(u' '));
}

TEST_F(HostileMailTest, LoadsOnlyWhatDrawsOnceImagesAreShown) {
    for (const auto &page : hostilePages())
        showInMail(page, u"after"_s, true);
    EXPECT_TRUE(spinUntil([] { return silent(u"after"_s, {Loading::drawing}).empty(); }))
        << silent(u"after"_s, {Loading::drawing});
    EXPECT_EQ(called(u"after"_s, Loading::forbidden), "");
    EXPECT_EQ(called(u"after"_s, Loading::unsupported), "");
}

TEST_F(HostileMailTest, WorksInAnEngineWithoutAGate) {
    UnguardedEngine engine;
    for (const auto &page : hostilePages()) {
        const auto isOpen = [&] { return engine.hasLoaded(); };
        engine.open(server.serve(pageOf(page, u"browser"_s).toUtf8()));
        EXPECT_TRUE(spinUntil(isOpen)) << page.first().name;
        const auto isMissing = [](const HostileMail &mail) {
            return mail.loading != Loading::unsupported && !lookedUpNames().contains(hostOf(mail, u"browser"_s));
        };
        EXPECT_TRUE(spinUntil([&] { return std::ranges::none_of(page, isMissing); })) << page.first().name;
    }
    EXPECT_EQ(silent(u"browser"_s, {Loading::drawing, Loading::forbidden}), "");
    EXPECT_EQ(called(u"browser"_s, Loading::unsupported), "") << "the engine has learnt to load these";
}

TEST_F(HostileMailTest, HoldsBackWhatIsMeantForReadersWithoutScripts) {
    // A browser that runs scripts would not load this one.
    const HostileMail mail{"noScript", Loading::drawing, "<noscript><img src=URL/a.png></noscript>"};
    showInMail({mail}, u"before"_s, false);
    EXPECT_FALSE(lookedUpNames().contains(hostOf(mail, u"before"_s)));
    showInMail({mail}, u"after"_s, true);
    EXPECT_TRUE(spinUntil([&] { return lookedUpNames().contains(hostOf(mail, u"after"_s)); }));
}

struct ClickRow {
    const char *name;
    const char *html;
};

/// What a press on the mail itself would send.
class PressedMail : public HostileMailTest, public testing::WithParamInterface<ClickRow> {};

constexpr HostileMail nextMail{"next", Loading::unsupported, "<p>The next message</p>"};

#define LARGE "style='display:block;width:100%;height:300px'"

TEST_P(PressedMail, SendsNothing) {
    const HostileMail mail{GetParam().name, Loading::forbidden, GetParam().html};
    for (const bool showsImages : {false, true}) {
        const auto run = showsImages ? u"pressed-after"_s : u"pressed-before"_s;
        showInMail({mail}, run, showsImages);
        column.click({400, 350});
        showInMail({nextMail}, run, showsImages);
        EXPECT_FALSE(lookedUpNames().contains(hostOf(mail, run)));
    }
    EXPECT_EQ(server.connections, 0);

    UnguardedEngine engine;
    engine.open(server.serve(timerBar(0).toUtf8() + htmlOf(mail, u"pressed-browser"_s, server.serverPort()).toUtf8()));
    ASSERT_TRUE(spinUntil([&] { return engine.hasLoaded(); }));
    // Its window lies over the column's header.
    ASSERT_TRUE(column.waitForColor({400, 50}, QColor(0, 255, 0)));
    engine.click({400, 350});
    EXPECT_TRUE(spinUntil([&] { return lookedUpNames().contains(hostOf(mail, u"pressed-browser"_s)); }));
    // The engine does not bear to be destroyed while it posts a form.
    EXPECT_TRUE(spinUntil([&] { return engine.hasLoaded(); }));
}

INSTANTIATE_TEST_SUITE_P(
    , PressedMail,
    testing::Values(ClickRow{"Ping", "<a " LARGE " href='#' ping=URL/ping>x</a>"},
                    ClickRow{"Link", "<a " LARGE " href=URL/link>x</a>"},
                    ClickRow{"Submit", "<form action=URL/form><input type=submit " LARGE "></form>"},
                    ClickRow{"Post", "<form method=post action=URL/form><button " LARGE ">x</button></form>"},
                    ClickRow{"FormAction", "<form><button formaction=URL/form " LARGE ">x</button></form>"},
                    ClickRow{"FarButton", "<form id=f action=URL/form></form><button form=f " LARGE ">x</button>"},
                    ClickRow{"Script", "<a " LARGE " href=\"javascript:void(fetch('URL/script'))\">x</a>"},
                    ClickRow{"Handler", "<div " LARGE " onmousedown=\"fetch('URL/handler')\">x</div>"}),
    [](const auto &row) { return std::string(row.param.name); });
