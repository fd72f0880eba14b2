#include "Chapters.h"
#include "Mailbox.h"
#include "ProcessTree.h"
#include "ProgramProcess.h"
#include "Report.h"
#include "ScreenAreas.h"
#include "ScreenProbe.h"

#include <QThread>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr int runs = 5;
constexpr int idleSeconds = 60;
/// After these the engine has been started in advance, and an opened message has come to rest.
constexpr int warmUpSeconds = 4, restSeconds = 5;

void waitFor(const ScreenProbe &screen, const QColor &color, const QRect &area) {
    if (!screen.waitUntil(color, area))
        throw std::runtime_error("the program does not show what it should");
}

void click(const QPoint &place) {
    QProcess::execute(u"xdotool"_s,
                      {u"mousemove"_s, QString::number(place.x()), QString::number(place.y()), u"click"_s, u"1"_s});
}

/// Megabytes as soon as the rows are on the display, before the engine is started.
double memoryAtInbox(const ScreenProbe &screen, const Profile &profile) {
    const ProgramProcess program(profile);
    waitFor(screen, primaryColor, unreadDotArea);
    return ProcessTree(program.id()).memory();
}

void openNewsletter(const ScreenProbe &screen) {
    waitFor(screen, primaryColor, unreadDotArea);
    QThread::sleep(warmUpSeconds);
    click(firstRow);
    click(secondRow);
    waitFor(screen, QColor(letterColor), messageArea);
    QThread::sleep(restSeconds);
}

double idleTime(const ProcessTree &processes) {
    const auto before = processes.processorTime();
    QThread::sleep(idleSeconds);
    return processes.processorTime() - before;
}

} // namespace

void measureWeight(const Profile &signedIn) {
    const ScreenProbe screen;
    Series atInbox, withMessage, idle;
    for (int run = 0; run < runs; ++run) {
        screen.waitUntil(primaryColor, unreadDotArea, false);
        atInbox.add(memoryAtInbox(screen, signedIn));
    }
    Report::add(u"Memory at the inbox, the engine not loaded"_s, atInbox, u" MB"_s, {60});

    screen.waitUntil(primaryColor, unreadDotArea, false);
    const ProgramProcess program(signedIn);
    openNewsletter(screen);
    const ProcessTree processes(program.id());
    withMessage.add(processes.memory());
    Report::add(u"Memory of all processes with an HTML message open"_s, withMessage, u" MB"_s, {240});
    idle.add(idleTime(processes));
    Report::add(u"Processor time of all processes in 60 s idle"_s, idle, u"ms"_s, {20});
}
