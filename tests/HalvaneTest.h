#pragma once

#include <QObject>
#include <QTest>

#include <functional>
#include <map>
#include <memory>

// How long a test waits for what must come, in milliseconds: the busiest machine gets there in a fraction of it.
inline constexpr int patience = 60'000;

// The test classes of one executable by name. `HALVANE_TEST(TextTest)` at the end of TextTest.cpp puts that class in;
// `test_base TextTest` then runs it, and CTest has one entry for each such file.
using TestFactory = std::function<std::unique_ptr<QObject>()>;

inline std::map<QString, TestFactory>& testClasses() {
    static std::map<QString, TestFactory> classes;
    return classes;
}

#define HALVANE_TEST(Class)                                                                                            \
    static const bool registered##Class =                                                                              \
        testClasses().emplace(QStringLiteral(#Class), [] { return std::make_unique<Class>(); }).second;
