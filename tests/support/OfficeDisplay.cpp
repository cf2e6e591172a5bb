#include "support/OfficeDisplay.h"

#include <QDir>
#include <QTemporaryFile>

void useOfficeDisplay() {
    if (qgetenv("QT_QPA_PLATFORM") != "offscreen") return;
    static QTemporaryFile file(QDir::temp().filePath(u"halvane-display-XXXXXX.json"_qs));
    if (!file.open()) return;
    const QStringList size = qEnvironmentVariable("HALVANE_TEST_DISPLAY", u"1366x768"_qs).split(u'x');
    file.write(u"{\"screens\": [{\"name\": \"office\", \"x\": 0, \"y\": 0, \"width\": %1, \"height\": %2,"
               u" \"logicalDpi\": 96, \"logicalBaseDpi\": 96, \"dpr\": 1}]}"_qs.arg(size.value(0), size.value(1))
                   .toUtf8());
    file.flush();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + file.fileName().toLocal8Bit());
}
