#include "Report.h"

#include <QTextStream>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

void printLine(const QString &what, const QString &median, const QString &worst, const QString &runs,
               const QString &target) {
    QTextStream(stdout) << what.leftJustified(64) << median.rightJustified(10) << worst.rightJustified(10)
                        << runs.rightJustified(6) << u"  "_s << target << Qt::endl;
}

QString number(double value) {
    return QString::number(value, 'f', value < 10 ? 2 : 1);
}

} // namespace

double Series::median() const {
    auto sorted = m_values;
    std::ranges::sort(sorted);
    const auto middle = sorted.size() / 2;
    return sorted.size() % 2 ? sorted[middle] : (sorted[middle - 1] + sorted[middle]) / 2;
}

double Series::least() const {
    return *std::ranges::min_element(m_values);
}

double Series::greatest() const {
    return *std::ranges::max_element(m_values);
}

void Report::printHeading() {
    printLine(u"What"_s, u"median"_s, u"worst"_s, u"runs"_s, u"target"_s);
}

void Report::add(const QString &what, const Series &series, const QString &unit, Target target) {
    const bool isReached = target.isLeast ? series.median() >= target.value : series.median() <= target.value;
    const auto worst = target.isLeast ? series.least() : series.greatest();
    printLine(what, number(series.median()), number(worst), QString::number(series.count()),
              u"%1 %2 %3%4"_s.arg(target.isLeast ? u"at least"_s : u"at most"_s, number(target.value), unit,
                                  isReached ? u""_s : u"   MISSED"_s));
}
