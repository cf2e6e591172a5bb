#include "support/OfficeDisplay.h"

#include <QDir>
#include <QTemporaryFile>

void useOfficeDisplay() {
    if (qgetenv("QT_QPA_PLATFORM") != "offscreen") return;
    static QTemporaryFile file(QDir::temp().filePath(u"halvane-display-XXXXXX.json"_qs));
    if (!file.open()) return;
    file.write(R"({"screens": [{"name": "office", "x": 0, "y": 0, "width": 1366, "height": 768,
        "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
    file.flush();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + file.fileName().toLocal8Bit());
}
