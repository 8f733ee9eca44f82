#pragma once

#include "maintenance/sample_material.h"
#include "maintenance/sample_random.h"

#include <QSet>
#include <QString>

#include <vector>

namespace kolibri {

/// A contact person of a pupil.
struct SampleContact {
    QString surname;
    QString firstName;
    QString street;
    QString plz;
    QString town;
    QString phone;
    QString mobile;
    QString work;
    QString mail;
    QString relation;
};

/// What brothers and sisters share: surname and contact persons, one to three of them.
struct SampleFamily {
    QString surname;
    std::vector<SampleContact> contacts;
    /// Grades in which the family has a child; never two in one, so that birth dates stay plausible.
    QSet<int> grades;
};

/// The place of a child in the families, and its first name.
struct SampleChild {
    std::size_t family = 0;
    QString firstName;
};

/// Makes families as children need them. No two children have the same names: the office could not enter the
/// second one.
class SampleFamilies {
public:
    SampleFamilies(const SampleMaterial& material, SampleRandom& random)
        : m_material(material), m_random(random) {}

    /// A child for a grade (0 before school), in a family of its own or with brothers and sisters.
    SampleChild addChild(int grade);
    std::vector<SampleFamily> takeFamilies() { return std::move(m_families); }

private:
    QString firstName(bool female) { return m_random.pick(female ? m_material.girls : m_material.boys); }
    bool takeName(const QString& surname, const QString& firstName);
    void makeFamily(const QString& surname);
    SampleContact makeContact(const QString& surname, const QString& relation, bool female);
    void makeAddress(SampleContact& contact);

    const SampleMaterial& m_material;
    SampleRandom& m_random;
    std::vector<SampleFamily> m_families;
    QSet<QString> m_names;
};

} // namespace kolibri
