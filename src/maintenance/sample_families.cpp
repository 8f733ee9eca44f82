#include "maintenance/sample_families.h"

#include <array>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

constexpr int kPercentSiblings = 18;
constexpr int kPercentBothParents = 75;
constexpr int kPercentOtherContact = 30;
constexpr int kPercentSameSurname = 85;
constexpr int kPercentSameAddress = 75;
/// Names tried before a child gets a double surname. Matters for schools of many thousands only.
constexpr int kTriesWithOneSurname = 6;

/// The part of a mail address that comes from a name: small letters without marks.
QString mailName(const QString& name) {
    static const std::array<std::pair<QString, QString>, 8> kSpellings{{{u"ä"_s, u"ae"_s},
                                                                        {u"ö"_s, u"oe"_s},
                                                                        {u"ü"_s, u"ue"_s},
                                                                        {u"ß"_s, u"ss"_s},
                                                                        {u"ł"_s, u"l"_s},
                                                                        {u"ø"_s, u"o"_s},
                                                                        {u"ı"_s, u"i"_s},
                                                                        {u" "_s, u"-"_s}}};
    QString text = name.toLower();
    for (const auto& [letter, spelling] : kSpellings)
        text.replace(letter, spelling);
    QString result;
    for (const QChar letter : text.normalized(QString::NormalizationForm_D))
        if ((letter >= u'a' && letter <= u'z') || letter == u'-')
            result += letter;
    return result;
}

QString threeDigits(int number) {
    return u"%1"_s.arg(number, 3, 10, QChar(u'0'));
}

} // namespace

SampleChild SampleFamilies::addChild(int grade) {
    if (!m_families.empty() && m_random.chance(kPercentSiblings)) {
        const auto index = static_cast<std::size_t>(m_random.below(static_cast<int>(m_families.size())));
        const QString name = firstName(m_random.chance(50));
        SampleFamily& family = m_families[index];
        if (!family.grades.contains(grade) && takeName(family.surname, name)) {
            family.grades.insert(grade);
            return {index, name};
        }
    }
    for (int attempt = 0;; ++attempt) {
        QString surname = m_random.pick(m_material.surnames);
        if (attempt >= kTriesWithOneSurname)
            surname += u'-' + m_random.pick(m_material.surnames);
        const QString name = firstName(m_random.chance(50));
        if (!takeName(surname, name))
            continue;
        makeFamily(surname);
        m_families.back().grades.insert(grade);
        return {m_families.size() - 1, name};
    }
}

bool SampleFamilies::takeName(const QString& surname, const QString& firstName) {
    const QString both = surname.toLower() + u'|' + firstName.toLower();
    if (m_names.contains(both))
        return false;
    m_names.insert(both);
    return true;
}

void SampleFamilies::makeFamily(const QString& surname) {
    SampleFamily family{surname, {}, {}};
    const bool motherFirst = m_random.chance(70);
    const auto parent = [&](bool mother) {
        const QString own =
            m_random.chance(kPercentSameSurname) ? surname : m_random.pick(m_material.surnames);
        return makeContact(own, mother ? u"Mutter"_s : u"Vater"_s, mother);
    };
    family.contacts.push_back(parent(motherFirst));
    makeAddress(family.contacts.front());
    const SampleContact home = family.contacts.front();
    const auto add = [&](SampleContact contact) {
        if (m_random.chance(kPercentSameAddress)) {
            contact.street = home.street;
            contact.plz = home.plz;
            contact.town = home.town;
            contact.phone = home.phone;
        } else {
            makeAddress(contact);
        }
        family.contacts.push_back(contact);
    };
    if (m_random.chance(kPercentBothParents))
        add(parent(!motherFirst));
    if (m_random.chance(kPercentOtherContact)) {
        const SampleRelation& relation = m_random.pick(m_material.relations);
        add(makeContact(m_random.pick(m_material.surnames), relation.word, relation.female));
    }
    m_families.push_back(family);
}

SampleContact SampleFamilies::makeContact(const QString& surname, const QString& relation, bool female) {
    SampleContact contact;
    contact.surname = surname;
    contact.firstName = firstName(female);
    contact.relation = relation;
    // Numbers that no telephone company gives out, and an address that nobody can have.
    if (m_random.chance(90))
        contact.mobile = u"0176 04069 "_s + threeDigits(m_random.below(1000));
    if (m_random.chance(50))
        contact.work = u"040 66969 "_s + threeDigits(m_random.below(1000));
    if (m_random.chance(70))
        contact.mail = mailName(contact.firstName) + u'.' + mailName(contact.surname) + u"@example.org"_s;
    return contact;
}

void SampleFamilies::makeAddress(SampleContact& contact) {
    constexpr int kPercentInTown = 70;
    constexpr int kHouses = 90;
    const SampleTown& town =
        m_random.chance(kPercentInTown) ? m_material.towns.front() : m_random.pick(m_material.towns);
    contact.street = m_random.pick(m_material.streets);
    contact.street += u' ' + QString::number(1 + m_random.below(kHouses));
    if (m_random.chance(10))
        contact.street += QChar(u'a' + m_random.below(3));
    contact.plz = town.plz;
    contact.town = town.name;
    if (m_random.chance(75))
        contact.phone = u"040 66969 "_s + threeDigits(m_random.below(1000));
}

} // namespace kolibri
