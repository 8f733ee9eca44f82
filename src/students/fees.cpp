#include "students/fees.h"

#include <QRegularExpression>

#include <cstdlib>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

constexpr qint64 kCentsPerEuro = 100;
/// The store keeps money in 64 bits with four decimals; fifteen digits of euros are above that.
constexpr qint64 kLargestCents = 92'233'720'368'547'700;

} // namespace

std::optional<qint64> BeitragInCent(const QString& text) {
    static const QRegularExpression form(u"^([+-]?)(\\d{1,3}(?:\\.\\d{3})+|\\d*)(?:,(\\d*))?$"_s);
    const auto match = form.match(text.trimmed());
    QString euros = match.captured(2).remove(u'.');
    const QString decimals = match.captured(3);
    if (!match.hasMatch() || (euros.isEmpty() && decimals.isEmpty()))
        return std::nullopt;
    while (euros.startsWith(u'0'))
        euros.remove(0, 1);
    constexpr int kMostDigits = 15;
    if (euros.size() > kMostDigits)
        return std::nullopt;
    // Digit by digit: a binary fraction would round 1,005 down.
    const QString digits = decimals.leftJustified(3, u'0').first(3);
    qint64 cents = euros.toLongLong() * kCentsPerEuro + digits.first(2).toLongLong();
    if (digits.back() >= u'5')
        ++cents;
    if (cents > kLargestCents)
        return std::nullopt;
    return match.captured(1) == u"-"_s ? -cents : cents;
}

QString BeitragText(qint64 cent) {
    const qint64 size = std::abs(cent);
    return u"%1%2,%3"_s.arg(cent < 0 ? u"-"_s : QString())
        .arg(size / kCentsPerEuro)
        .arg(size % kCentsPerEuro, 2, 10, QChar(u'0'));
}

QString GespeicherterBeitrag(const QVariant& stored) {
    if (stored.isNull())
        return {};
    // Four decimals, as the store keeps them, are exact in this text.
    const auto cents = BeitragInCent(QString::number(stored.toDouble(), 'f', 4).replace(u'.', u','));
    return cents ? BeitragText(*cents) : QString();
}

BeitragPruefung BeitragSummeBilden(const BeitragTexte& texte) {
    BeitragPruefung pruefung{texte, {}};
    qint64 sum = 0;
    for (int i = 0; i < kBeitraege; ++i) {
        QString& text = pruefung.texte[static_cast<std::size_t>(i)];
        if (text.isEmpty())
            continue;
        if (const auto cents = BeitragInCent(text)) {
            sum += *cents;
            text = BeitragText(*cents);
        } else {
            pruefung.ungueltig.push_back(i);
        }
    }
    pruefung.texte[kBeitragSumme] = BeitragText(sum);
    return pruefung;
}

} // namespace kolibri
