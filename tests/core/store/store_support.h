#pragma once

#include "core/store/connection.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <functional>
#include <optional>

namespace kolibri::test {

/// The StoreError that a piece of work ends with; none when it gets through.
inline std::optional<StoreError> errorOf(const std::function<void()>& work) {
    try {
        work();
    } catch (const StoreError& error) {
        return error;
    }
    return std::nullopt;
}

/// The whole content of a file; null when there is no such file.
inline QByteArray contentOf(const QString& name) {
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

inline void writeContent(const QString& name, const QByteArray& content) {
    QFile file(name);
    QVERIFY2(file.open(QIODevice::WriteOnly), qPrintable(file.errorString()));
    QCOMPARE(file.write(content), content.size());
}

/// Names of everything in a folder, sorted.
inline QStringList filesIn(const QString& folder) {
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
}

} // namespace kolibri::test

/// The work must end with a StoreError of this kind.
#define EXPECT_STORE_ERROR(errorKind, ...)                                                                   \
    do {                                                                                                     \
        const auto storeError = kolibri::test::errorOf([&] { __VA_ARGS__; });                                \
        QVERIFY2(storeError, "no error came");                                                               \
        if (storeError->kind() != StoreError::Kind::errorKind)                                               \
            QFAIL(qPrintable(storeError->message() + u'\n' + storeError->details()));                        \
    } while (false)
