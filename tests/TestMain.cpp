#include "HalvaneTest.h"

#ifdef QT_WIDGETS_LIB
#include <QApplication>
using TestApplication = QApplication;
#else
#include <QCoreApplication>
using TestApplication = QCoreApplication;
#endif

#include <cstdio>

namespace {

constexpr int unknownClass = 2;

int listClasses() {
    for (const auto& [name, make] : testClasses()) std::printf("%s\n", qUtf8Printable(name));
    return unknownClass;
}

} // namespace

// The first argument names the test class; the rest are the options of Qt Test.
int main(int argc, char** argv) {
    TestApplication application(argc, argv);
    QStringList arguments = application.arguments();
    if (arguments.size() < 2) return listClasses();
    const auto found = testClasses().find(arguments.takeAt(1));
    return found == testClasses().end() ? listClasses() : QTest::qExec(found->second().get(), arguments);
}
