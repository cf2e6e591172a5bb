#include "HalvaneTest.h"

#ifdef QT_WIDGETS_LIB
#include "support/OfficeDisplay.h"

#include <QApplication>
using TestApplication = QApplication;
#else
#include <QCoreApplication>
using TestApplication = QCoreApplication;
#endif

#include <cstdio>
#include <cstdlib>
#include <exception>

namespace {

constexpr int unknownClass = 2;
constexpr char functionTimeout[] = "QTEST_FUNCTION_TIMEOUT"; // in milliseconds

int listClasses() {
    for (const auto& [name, make] : testClasses()) std::printf("%s\n", qUtf8Printable(name));
    return unknownClass;
}

// An error that no test expected: its words, and not the core alone.
[[noreturn]] void tellUnexpected() {
    try {
        if (std::current_exception()) throw;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "unexpected error: %s\n", error.what());
    } catch (...) {
        std::fprintf(stderr, "unexpected error of an unknown kind\n");
    }
    std::_Exit(EXIT_FAILURE);
}

} // namespace

// The first argument names the test class; the rest are the options of Qt Test.
int main(int argc, char** argv) {
    std::set_terminate(tellUnexpected);
    // Some tests run as long as they are asked to; a test that hangs is ended from outside.
    if (!qEnvironmentVariableIsSet(functionTimeout)) qputenv(functionTimeout, "3600000");
#ifdef QT_WIDGETS_LIB
    useOfficeDisplay();
#endif
    TestApplication application(argc, argv);
    QStringList arguments = application.arguments();
    if (arguments.size() < 2) return listClasses();
    const auto found = testClasses().find(arguments.takeAt(1));
    return found == testClasses().end() ? listClasses() : QTest::qExec(found->second().get(), arguments);
}
