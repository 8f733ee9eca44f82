#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

namespace kolibri::bench {

/// Milliseconds that a piece of work takes: the median of several rounds, so that one hiccup of the machine
/// does not count.
double medianMilliseconds(int rounds, const std::function<void()>& work);

/// "12.3" with so many digits behind the point.
QString figure(double number, int digits = 2);

/// How often the larger school's figure holds the smaller one's, and how often its rows do: "9.8x for 10.0x
/// rows". Growth beyond that of the rows is what to look for.
QString growth(double smaller, double larger, double smallerRows, double largerRows);

/// A table of figures on the standard output; the first column is text, all others stand to the right.
class Table {
public:
    Table(const QString& title, const QStringList& columns);

    void add(const QStringList& row);
    void print() const;

private:
    QString m_title;
    std::vector<QStringList> m_rows;
};

} // namespace kolibri::bench
