#include "web/EditorWindow.h"
#include "web/HostileMail.h"
#include "web/TrackingServer.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class EditorHostileMailTest : public testing::Test {
protected:
    QString quotationOf(const QList<HostileMail> &mails, const QString &run) const {
        QString page = u"<br><br><div><p>On Monday, <b>Eve</b> wrote:</p>"_s;
        for (const auto &mail : mails)
            page += u"<div>%1</div>\n"_s.arg(htmlOf(mail, run, server.serverPort()));
        return page + u"</div>"_s;
    }

    /// Until the page has been drawn, and what was inserted had the time to start.
    static void settle(EditorWindow &window, int milliseconds) {
        window.evaluate(u"var isSettled = false; setTimeout(() => isSettled = true, %1); 0"_s.arg(milliseconds));
        EXPECT_TRUE(spinUntil([&] { return window.evaluate(u"isSettled"_s).toBool(); }));
    }

    static std::string called(const QString &run) {
        QStringList names;
        const auto hosts = lookedUpNames();
        for (const auto &mail : hostileMails())
            if (hosts.contains(hostOf(mail, run)))
                names.append(QString::fromLatin1(mail.name));
        return names.join(u' ').toStdString();
    }

    void paste(EditorWindow &window, const QString &html) const {
        auto data = std::make_unique<QMimeData>();
        data->setHtml(html);
        QGuiApplication::clipboard()->setMimeData(data.release());
        const auto before = window.content();
        window.editor->paste();
        EXPECT_TRUE(spinUntil([&] { return window.content() != before; })) << qPrintable(html.left(200));
    }

    TrackingServer server;
};

} // namespace

TEST_F(EditorHostileMailTest, CallsNobodyFromAQuotation) {
    for (const auto &mails : hostilePages()) {
        EditorWindow window;
        window.fill(quotationOf(mails, u"quoted"_s));
        settle(window, mails.size() > 1 ? 1500 : 300);
        window.type(u"x"_s);
        EXPECT_TRUE(window.fetched().has_value()) << mails.first().name;
    }
    EXPECT_EQ(called(u"quoted"_s), "");
    EXPECT_EQ(server.connections, 0) << qPrintable(server.paths.join(u' '));
}

TEST_F(EditorHostileMailTest, CallsNobodyFromWhatIsPasted) {
    for (const auto &mails : hostilePages()) {
        EditorWindow window;
        paste(window, quotationOf(mails, u"pasted"_s));
        settle(window, mails.size() > 1 ? 1500 : 300);
    }
    EXPECT_EQ(called(u"pasted"_s), "");
    EXPECT_EQ(server.connections, 0) << qPrintable(server.paths.join(u' '));
}

TEST_F(EditorHostileMailTest, KeepsWorkingWhenElementsHideMembersOfTheDocument) {
    EditorWindow window;
    QString names;
    for (const auto *member : {"execCommand", "getElementById", "querySelectorAll", "queryCommandState", "getSelection",
                               "createElement", "webkit", "editor", "handlers", "qt", "report"})
        names += u"<img name=%1 id=%1><form name=%1></form>"_s.arg(QLatin1String(member));
    window.fill(names + u"<iframe srcdoc='x'></iframe><p id=text>words</p>"_s);
    EXPECT_FALSE(window.content().contains(u"iframe"_s));
    window.evaluate(u"getSelection.call; Document.prototype.getSelection.call(document).selectAllChildren("
                    "Document.prototype.getElementById.call(document, 'text')); 0"_s);
    window.ref->run(u"execCmd('bold', null);"_s);
    EXPECT_TRUE(spinUntil([&] { return window.reports.last().contains(u"<b>words</b>"_s); }));
}

TEST_F(EditorHostileMailTest, LoadsTheImageThatTheWriterInsertsAndNoOther) {
    EditorWindow window;
    window.fill(u"<img src='%1'>"_s.arg(server.url(u"quotation.image.test"_s, u"/quoted.png"_s)));
    const auto address = server.url(u"WRITTEN.image.test"_s, u"/a b/../it's.png#part"_s);
    window.ref->insertRemoteImage(address);
    EXPECT_TRUE(spinUntil([&] { return server.wasAskedFor(u"/it's.png"_s); })) << qPrintable(server.paths.join(u' '));
    EXPECT_TRUE(window.content().contains(address));
    EXPECT_FALSE(lookedUpNames().contains(u"quotation.image.test"_s));
    EXPECT_EQ(server.connections, 1);
}

TEST_F(EditorHostileMailTest, GoesNowhereWhenALinkIsPressed) {
    EditorWindow window;
    const auto address = server.url(u"link.press.test"_s, u"/"_s);
    window.fill(
        u"<div contenteditable=false><a href='%1' style='display:block;height:500px'>x</a></div>"_s.arg(address));
    for (const auto modifiers : {Qt::NoModifier, Qt::ShiftModifier})
        window.click({300, 200}, modifiers);
    settle(window, 300);
    EXPECT_TRUE(window.content().contains(address));
    EXPECT_FALSE(lookedUpNames().contains(u"link.press.test"_s));
}
