#include "HalvaneTest.h"

#include "base/Text.h"
#include "db/Schema.h"
#include "db/TableReference.h"

#include <QFile>
#include <QTest>

class TableReferenceTest : public QObject {
    Q_OBJECT

private slots:
    void pageInTheDocumentsIsCurrent() {
        QFile page(QStringLiteral(HALVANE_SOURCE_DIR "/docs/tables.md"));
        QVERIFY(page.open(QIODevice::ReadOnly));
        QVERIFY2(QString::fromUtf8(page.readAll()) == tableReference(),
                 "write it anew: halvane --table-reference > docs/tables.md");
    }

    void namesEveryColumnOfEveryTable() {
        const QString page = tableReference();
        for (const Schema::Table& table : Schema::tables()) {
            QVERIFY(page.contains(u"\n## %1\n"_qs.arg(table.name)));
            for (const Schema::Column& column : table.columns) QVERIFY(page.contains(u"| %1 | "_qs.arg(column.name)));
        }
    }
};

HALVANE_TEST(TableReferenceTest)
#include "TableReferenceTest.moc"
