#include "HalvaneTest.h"
#include "support/TestDatabase.h"

#include "base/AppError.h"

#include <QTest>

class ConnectionTest : public QObject {
    Q_OBJECT

private slots:
    void readsBackWhatWasWritten() {
        TestDatabase database(TestDatabase::Contents::Delivered);
        Connection& connection = database.connection();
        connection.execute(u"INSERT INTO 顧客情報 ([顧客ID], [顧客枝番], [名前1], [生年月日], [登録日], [備考]) VALUES "
                           u"('1', 1, '𠮷田''s', #2005/3/1#, #2005/03/01 09:05:00#, NULL)"_qs);
        Recordset rows = connection.query(u"SELECT * FROM [顧客情報]"_qs);
        QVERIFY(rows.next());
        QCOMPARE(rows.value(u"名前1"_qs), u"𠮷田's"_qs);
        QCOMPARE(rows.value(u"生年月日"_qs), u"2005/03/01"_qs);
        QCOMPARE(rows.value(u"登録日"_qs), u"2005/03/01 9:05:00"_qs);
        QCOMPARE(rows.value(u"備考"_qs), QString());
        QVERIFY(rows.isNull(u"備考"_qs));
        QVERIFY(!rows.next());
    }

    void sampleOfficeLoads() {
        TestDatabase database(TestDatabase::Contents::Sample);
        Connection& connection = database.connection();
        QCOMPARE(connection.scalar(u"SELECT COUNT(*) FROM [顧客見積情報]"_qs), u"120"_qs);
        QVERIFY(connection.scalar(u"SELECT SUM([見積総合計]) FROM [顧客見積情報]"_qs).toLongLong() > 0);
        QVERIFY(connection.scalar(u"SELECT COUNT(*) FROM [基本要素選択]"_qs).toInt() > 500);
    }
};

HALVANE_TEST(ConnectionTest)
#include "ConnectionTest.moc"
