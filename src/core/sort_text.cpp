#include "core/sort_text.h"

#include "core/store/column_kind.h"

#include <QDateTime>
#include <QStringList>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

QString numberText(double number) {
    constexpr int kDigits = 30;
    constexpr int kWidth = kDigits + 1 + kDigits;
    QString text = QString::number(std::abs(number), 'f', kDigits).rightJustified(kWidth, u'0');
    if (number >= 0)
        return text;
    // Of two numbers below zero the one with the larger digits is the smaller.
    std::transform(text.cbegin(), text.cend(), text.begin(),
                   [](QChar c) { return c == u'.' ? c : QChar(u'0' + u'9' - c.unicode()); });
    return u'-' + text;
}

/// The moment in the text by the first of the forms that fits, written anew in the form that sorts.
template <class Moment>
QString momentText(const QString& cell, const QStringList& forms, const QString& sortingForm) {
    for (const auto& form : forms)
        if (const Moment moment = Moment::fromString(cell.trimmed(), form); moment.isValid())
            return moment.toString(sortingForm);
    return cell;
}

} // namespace

QString SortText(const QString& cell, SortKind kind) {
    const QStringList times{u"h:mm"_s, u"h:mm:ss"_s};
    switch (kind) {
    case SortKind::Number: {
        const auto number = germanNumber(cell.trimmed());
        return number ? numberText(*number) : cell;
    }
    case SortKind::Date:
        return momentText<QDate>(cell, {u"d.M.yyyy"_s}, u"yyyyMMdd"_s);
    case SortKind::Time:
        return momentText<QTime>(cell, times, u"hh:mm"_s);
    case SortKind::TimeSeconds:
        return momentText<QTime>(cell, times, u"hh:mm:ss"_s);
    case SortKind::DateTime:
        return momentText<QDateTime>(cell, {u"d.M.yyyy h:mm:ss"_s, u"d.M.yyyy h:mm"_s, u"d.M.yyyy"_s},
                                     u"yyyyMMdd hh:mm:ss"_s);
    case SortKind::None:
    case SortKind::Text:
        break;
    }
    return cell;
}

} // namespace kolibri
