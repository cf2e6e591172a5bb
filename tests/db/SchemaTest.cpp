#include "HalvaneTest.h"

#include "db/Schema.h"

#include <QMap>
#include <QSet>

class SchemaTest : public QObject {
    Q_OBJECT

private slots:
    void everyTableStandsOnce() {
        QSet<QString> names;
        for (const Schema::Table& table : Schema::tables()) {
            QVERIFY2(!names.contains(table.name.toLower()), qUtf8Printable(table.name));
            names << table.name.toLower();
            QVERIFY(!table.meaning.isEmpty());
        }
        QCOMPARE(names.size(), 33);
    }

    void everyColumnStandsOnceInItsTable() {
        for (const Schema::Table& table : Schema::tables()) {
            QSet<QString> names;
            for (const Schema::Column& column : table.columns) names << column.name.toLower();
            QCOMPARE(names.size(), table.columns.size());
        }
    }

    void columnsHaveATypeAndTextsASize() {
        for (const Schema::Table& table : Schema::tables())
            for (const Schema::Column& column : table.columns) {
                QVERIFY2(column.type != Schema::Unknown, qUtf8Printable(table.name + column.name));
                QCOMPARE(column.size > 0, column.type == Schema::Text);
            }
    }

    void keysAndIndexesNameColumns() {
        for (const Schema::Table& table : Schema::tables()) {
            for (const QString& key : table.key) QVERIFY2(table.column(key), qUtf8Printable(table.name + key));
            for (const QStringList& index : table.indexes)
                for (const QString& column : index) QVERIFY2(table.column(column), qUtf8Printable(table.name + column));
            QVERIFY(!table.autoKey || (table.key.size() == 1 && table.column(table.key.first())->isInteger()));
        }
    }

    void onlyTheImportedBookHasNoKey() {
        for (const Schema::Table& table : Schema::tables()) QCOMPARE(table.key.isEmpty(), table.name == u"郵便番号簿");
    }

    // Bare columns are easier to read where all tables agree; the status is a number in an estimate and a name in its
    // own table.
    void columnsOfOneNameAreOfOneKind() {
        QMap<QString, QString> kinds;
        for (const Schema::Table& table : Schema::tables())
            for (const Schema::Column& column : table.columns) {
                if (column.name == u"処理区分") continue;
                const QString kind = column.isText() ? u"text"_qs : column.isDate() ? u"date"_qs : u"number"_qs;
                const QString known = kinds.value(column.name, kind);
                QVERIFY2(known == kind, qUtf8Printable(table.name + u'.' + column.name));
                kinds.insert(column.name, kind);
            }
    }

    // Names that stand in several tables only to be found by one spelling.
    void spellingsAreOne() {
        QMap<QString, QString> spellings;
        for (const Schema::Table& table : Schema::tables())
            for (const Schema::Column& column : table.columns) {
                const QString known = spellings.value(column.name.toLower(), column.name);
                QCOMPARE(known, column.name);
                spellings.insert(column.name.toLower(), column.name);
            }
        QCOMPARE(Schema::spelling(u"Id"_qs), u"ID"_qs);
        QCOMPARE(Schema::spelling(u"有効flg"_qs), u"有効Flg"_qs);
        QCOMPARE(Schema::spelling(u"無い名"_qs), u"無い名"_qs);
    }

    void tablesAreFoundInAnyCaseAndUnderTheirRevisionName() {
        QVERIFY(Schema::table(u"採番"_qs));
        QCOMPARE(Schema::table(u"価格基本_個別"_qs), Schema::table(u"価格基本"_qs));
        QVERIFY(!Schema::table(u"無い表"_qs));
        QVERIFY(Schema::table(u"価格種目"_qs)->column(u"id"_qs));
        QVERIFY(!Schema::table(u"価格種目"_qs)->column(u"無い列"_qs));
    }

    void digitsOfNamesKeepTheirWidth_data() {
        QTest::addColumn<QString>("table");
        QTest::addColumn<QString>("column");
        QTest::newRow("customer's address") << u"顧客情報"_qs << u"住所1"_qs;
        QTest::newRow("payer's address") << u"請求先"_qs << u"住所１"_qs;
        QTest::newRow("office's address") << u"企業情報"_qs << u"住所１"_qs;
        QTest::newRow("office's account") << u"企業情報"_qs << u"振込先1"_qs;
        QTest::newRow("discount") << u"顧客見積情報"_qs << u"基本割引１"_qs;
        QTest::newRow("price") << u"価格基本"_qs << u"新価格３"_qs;
    }
    void digitsOfNamesKeepTheirWidth() {
        QFETCH(QString, table);
        QFETCH(QString, column);
        QVERIFY(Schema::table(table)->column(column));
    }

    void priceTablesStandInTheirOrder() {
        QCOMPARE(Schema::priceTables(),
                 (QStringList{u"価格種目"_qs, u"価格基本"_qs, u"価格加算"_qs, u"価格要素"_qs, u"価格部品"_qs}));
    }
};

HALVANE_TEST(SchemaTest)
#include "SchemaTest.moc"
