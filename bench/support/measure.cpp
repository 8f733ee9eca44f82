#include "support/measure.h"

#include <QElapsedTimer>
#include <QTextStream>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kolibri::bench {

double medianMilliseconds(int rounds, const std::function<void()>& work) {
    std::vector<double> times;
    for (int round = 0; round < rounds; ++round) {
        QElapsedTimer timer;
        timer.start();
        work();
        times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
    const auto middle = times.begin() + rounds / 2;
    std::nth_element(times.begin(), middle, times.end());
    return *middle;
}

QString figure(double number, int digits) {
    return QString::number(number, 'f', digits);
}

QString growth(double smaller, double larger, double smallerRows, double largerRows) {
    return u"%1x for %2x rows"_s.arg(figure(larger / smaller, 1), figure(largerRows / smallerRows, 1));
}

Table::Table(const QString& title, const QStringList& columns) : m_title(title), m_rows{columns} {}

void Table::add(const QStringList& row) {
    m_rows.push_back(row);
}

void Table::print() const {
    QTextStream out(stdout);
    out << '\n' << m_title << '\n';
    std::vector<qsizetype> widths(static_cast<std::size_t>(m_rows.front().size()));
    for (const auto& row : m_rows)
        for (qsizetype i = 0; i < row.size(); ++i)
            widths.at(static_cast<std::size_t>(i)) =
                std::max(widths.at(static_cast<std::size_t>(i)), row.at(i).size());
    for (const auto& row : m_rows) {
        for (qsizetype i = 0; i < row.size(); ++i) {
            const qsizetype width = widths.at(static_cast<std::size_t>(i));
            out << "  " << (i == 0 ? row.at(i).leftJustified(width) : row.at(i).rightJustified(width));
        }
        out << '\n';
    }
}

} // namespace kolibri::bench
