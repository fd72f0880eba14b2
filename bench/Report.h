#pragma once

#include <QString>
#include <vector>

/// What came out of repeating one measurement.
class Series {
public:
    void add(double value) { m_values.push_back(value); }
    double median() const;
    double least() const;
    double greatest() const;
    std::size_t count() const { return m_values.size(); }
    const std::vector<double> &values() const { return m_values; }

private:
    std::vector<double> m_values;
};

/// A value to reach: at most so much, or for a rate at least.
struct Target {
    double value = 0;
    bool isLeast = false;
};

/// The table of all results. Each line is printed as soon as it is known.
class Report {
public:
    static void printHeading();
    static void add(const QString &what, const Series &series, const QString &unit, Target target);
};
