#pragma once

#include <QtGlobal>

#include <cstddef>
#include <random>
#include <utility>

namespace kolibri {

/// Numbers for the sample school that are the same on every machine. The distributions of the standard
/// library differ from one library to the next, so the generator's numbers are brought into a range here. For
/// the same reason no expression may ask for two numbers without saying which comes first: take each into a
/// variable.
class SampleRandom {
public:
    explicit SampleRandom(quint32 seed) : m_generator(seed) {}

    /// 0 to count - 1.
    int below(int count) {
        const quint64 number = m_generator();
        return static_cast<int>((number * static_cast<quint64>(count)) >> 32);
    }

    bool chance(int percent) { return below(100) < percent; }

    template <typename List> const typename List::value_type& pick(const List& list) {
        return list[static_cast<typename List::size_type>(below(static_cast<int>(list.size())))];
    }

    template <typename List> void shuffle(List& list) {
        for (int last = static_cast<int>(list.size()) - 1; last > 0; --last)
            std::swap(list[static_cast<typename List::size_type>(last)],
                      list[static_cast<typename List::size_type>(below(last + 1))]);
    }

private:
    std::mt19937 m_generator;
};

} // namespace kolibri
