#include "Chapters.h"
#include "ProgramProcess.h"
#include "Report.h"
#include "ScreenAreas.h"
#include "ScreenProbe.h"

#include <QElapsedTimer>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr int runs = 15;

double startTime(const ScreenProbe &screen, const Profile &profile, const QRect &area) {
    if (!screen.waitUntil(primaryColor, area, false))
        throw std::runtime_error("something covers the display");
    QElapsedTimer timer;
    timer.start();
    const ProgramProcess program(profile);
    if (!screen.waitUntil(primaryColor, area))
        throw std::runtime_error("the program does not show itself");
    return double(timer.nsecsElapsed()) / 1e6;
}

Series startTimes(const Profile &profile, const QRect &area) {
    const ScreenProbe screen;
    Series series;
    startTime(screen, profile, area);
    for (int run = 0; run < runs; ++run)
        series.add(startTime(screen, profile, area));
    return series;
}

} // namespace

void measureStart(const Profile &signedOut, const Profile &signedIn) {
    Report::add(u"Start to the sign-in screen painted"_s, startTimes(signedOut, signInButtonArea), u"ms"_s, {150});
    Report::add(u"Start with a session to the inbox's rows painted"_s, startTimes(signedIn, unreadDotArea), u"ms"_s,
                {400});
}
