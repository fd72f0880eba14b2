// Measures the program against a development server on this machine and prints a table.

#include "Chapters.h"
#include "Mailbox.h"
#include "MainThread.h"
#include "ProgramProcess.h"
#include "RawServer.h"
#include "Report.h"
#include "driver/AppDriver.h"
#include "driver/DevServerProcess.h"

#include <QApplication>
#include <algorithm>
#include <iostream>

using namespace Qt::StringLiterals;

namespace {

constexpr int warmUpTime = 4000; // milliseconds
const QStringList insideChapters{u"list"_s, u"message"_s, u"threads"_s, u"attachment"_s, u"writing"_s, u"actions"_s};

bool isWanted(const QString &chapter) {
    const auto wanted = QCoreApplication::arguments().mid(1);
    return wanted.isEmpty() || wanted.contains(chapter);
}

/// What runs in processes of its own comes first, while this one has no window.
void measureFromOutside(const RawServer &server, const QString &address) {
    const Profile signedOut(address);
    Profile signedIn(address);
    signedIn.storeSession(server, address);
    if (isWanted(u"parsing"_s))
        measureParsing(server);
    if (isWanted(u"start"_s))
        measureStart(signedOut, signedIn);
    if (isWanted(u"weight"_s))
        measureWeight(signedIn);
}

void measureFromInside(const RawServer &server, const QString &address) {
    AppDriver driver(address);
    driver.signIn(u"demo"_s, u"corvanite"_s);
    driver.waitForList();
    MainThread::run(warmUpTime);
    if (isWanted(u"list"_s))
        measureList(driver, server);
    if (isWanted(u"message"_s))
        measureMessages(driver);
    if (isWanted(u"threads"_s))
        measureThreads(driver, address);
    if (isWanted(u"attachment"_s))
        measureAttachment(driver, server);
    if (isWanted(u"writing"_s))
        measureWriting(driver);
    if (isWanted(u"actions"_s))
        measureActions(driver, server);
}

void measure() {
    const Mailbox mailbox;
    const DevServerProcess process({u"--maildir"_s, mailbox.path()});
    const RawServer server(process.address());
    Report::printHeading();
    measureFromOutside(server, process.address());
    if (std::ranges::any_of(insideChapters, isWanted))
        measureFromInside(server, process.address());
}

} // namespace

int main(int argc, char **argv) {
    // Its own event loop waits in one place, which makes the time between two waits measurable.
    qputenv("QT_NO_GLIB", "1");
    QApplication application(argc, argv);
    try {
        measure();
    } catch (const std::exception &error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
    return 0;
}
