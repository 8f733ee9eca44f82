#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

namespace kolibri::bench {

/// Milliseconds that a piece of work takes, over several rounds.
struct Timing {
    /// The usual round; one hiccup of the machine does not count.
    double median = 0;
    /// The round that the rest of the machine disturbed least.
    double quickest = 0;
};
Timing timed(int rounds, const std::function<void()>& work);

/// "12.3" with so many digits behind the point.
QString figure(double number, int digits = 2);

/// How often the larger school's figure holds the smaller one's, and how often its pupils do: "9.8x for 10.0x
/// pupils". Growth beyond that of the pupils is what to look for.
QString growth(double smaller, double larger, int fewerPupils, int morePupils);

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
