#include "HalvaneTest.h"

#include "reports/ReportComposer.h"

namespace {

double narrow(const QString& text, const ReportFont& font) { return double(text.size()) * font.size; }

// A layout of the bands given, each as its JSON without the braces: paper with room for three details between head and
// foot of the page.
ReportLayout layout(const QByteArrayList& bands, const QByteArray& more = {}) {
    const QByteArray json = R"({"paper": "A4", "margins": {"top": 0, "bottom": 0, "left": 0, "right": 0},
        "fonts": {"body": {"family": "mincho", "size": 10}}, )" +
                            more + R"("bands": {)" + bands.join(", ") + "}}";
    return loadReportLayout(u"tried"_qs, [=](const QString&) { return json; });
}

QByteArray band(const QByteArray& name, int height, const QByteArray& items) {
    return '"' + name + R"(": {"height": )" + QByteArray::number(height) + R"(, "items": {)" + items + "}}";
}

QByteArray item(const QByteArray& name, const QByteArray& keys) {
    return '"' + name + R"(": {"at": [0, 0, 700, 240], )" + keys + '}';
}

const QByteArray rowItem = R"("txtPrice": {"at": [0, 0, 700, 240]})";
constexpr int third = 5000; // of the paper's height, about

struct Row {
    QString group;
    QVariant price;
    QVariant day{};
};

struct Sales {
    ReportRecordset records;
    QStringList groups;
};

Sales sales(const QList<Row>& rows) {
    Sales made;
    made.records.AppendField(u"Order"_qs, ReportFieldType::Text, 20);
    made.records.AppendField(u"Price"_qs, ReportFieldType::Currency);
    made.records.AppendField(u"Day"_qs, ReportFieldType::Date);
    for (const Row& row : rows) {
        made.records.AddNew();
        made.records.Set(u"Order"_qs, row.group);
        made.records.Set(u"Price"_qs, row.price);
        made.records.Set(u"Day"_qs, row.day);
        made.groups << row.group;
    }
    return made;
}

QList<ReportPage> pages(const ReportLayout& layout, const Sales& sales, ReportRowPlan plan = ReportRowPlan::List,
                        int lines = 0) {
    return composePages(layout, {sales.records, sales.groups, plan, {{u"Office"_qs, u"はるかぜ"_qs}}, lines}, narrow);
}

// What an item shows: from page to page, on one page in reading order.
QString shown(const QList<ReportPage>& pages, const QString& control) {
    QStringList all;
    for (const ReportPage& page : pages) {
        QStringList found;
        for (const ReportPageText& text : page.texts)
            if (text.control == control) found << text.text;
        all << found.join(u' ');
    }
    return all.join(u'|');
}

QString fault(const ReportLayout& layout, const Sales& sales) {
    try {
        pages(layout, sales);
        return u"no fault"_qs;
    } catch (const AppError& error) {
        return error.description();
    }
}

const QList<Row> fiveRows{{u"A"_qs, 1}, {u"A"_qs, 20}, {u"B"_qs, 300}, {u"B"_qs, 4000}, {u"B"_qs, 50000}};

} // namespace

class ReportComposerTest : public QObject {
    Q_OBJECT

private slots:
    void sumsCountWhatStandsThere_data() {
        QTest::addColumn<QByteArray>("band");
        QTest::addColumn<QByteArray>("over");
        QTest::addColumn<QString>("sums");
        QTest::newRow("page at its foot") << QByteArray("pageFooter") << QByteArray("page") << u"321|54000"_qs;
        QTest::newRow("page at its head") << QByteArray("pageHeader") << QByteArray("page") << u"321|54000"_qs;
        QTest::newRow("group at its foot") << QByteArray("groupFooter") << QByteArray("group") << u"21|54300"_qs;
        QTest::newRow("group at its head, repeated")
            << QByteArray("groupHeader") << QByteArray("group") << u"21 54300|54300"_qs;
        QTest::newRow("report at its end") << QByteArray("reportFooter") << QByteArray("report") << u"|54321"_qs;
        QTest::newRow("report on each page") << QByteArray("pageHeader") << QByteArray("report") << u"54321|54321"_qs;
        QTest::newRow("running in the rows")
            << QByteArray("detail") << QByteArray("running") << u"1 21 321|4321 54321"_qs;
        QTest::newRow("running at the foot") << QByteArray("pageFooter") << QByteArray("running") << u"321|54321"_qs;
        QTest::newRow("brought forward") << QByteArray("pageHeader") << QByteArray("running") << u"|321"_qs;
        QTest::newRow("down to the group") << QByteArray("groupFooter") << QByteArray("running") << u"21|54321"_qs;
    }
    void sumsCountWhatStandsThere() {
        QFETCH(QByteArray, band);
        QFETCH(QByteArray, over);
        const QByteArray sum = item("txtSum", R"("sum": "Price", "over": ")" + over + R"(", "format": "0")");
        QByteArrayList bands;
        for (const char* name : {"pageHeader", "groupHeader", "groupFooter", "pageFooter", "reportFooter"})
            if (name != band) bands << ::band(name, 240, {});
        bands << (band == "detail" ? ::band("detail", third, sum)
                                   : ::band("detail", third, {}) + ", " + ::band(band, 240, sum));
        QTEST(shown(pages(layout(bands), sales(fiveRows)), u"txtSum"_qs), "sums");
    }

    void blankRowsOfADocumentAddNothingAndShowNoSum() {
        const QByteArray sum = R"("sum": "Price", "format": "#,##0", "over": )";
        const ReportLayout padded = layout({band("detail", 240, item("txtRunning", sum + R"("running")")),
                                            band("pageFooter", 240, item("txtPage", sum + R"("page")"))},
                                           R"("groupOnNewPage": true, )");
        const QList<ReportPage> made = pages(padded, sales(fiveRows), ReportRowPlan::Documents, 2);
        QCOMPARE(shown(made, u"txtRunning"_qs), u"1 21|321 4,321|54,321"_qs);
        QCOMPARE(shown(made, u"txtPage"_qs), u"21|4,300|50,000"_qs);
    }

    void amountsThatAreKeptSecretHaveNoSum() {
        const ReportLayout tried =
            layout({band("detail", 240, rowItem),
                    band("reportFooter", 240, item("txtAll", R"("sum": "Price", "over": "report")"))});
        QCOMPARE(shown(pages(tried, sales({{u"A"_qs, {}}, {u"A"_qs, {}}})), u"txtAll"_qs), QString());
    }

    void headAndFootOfAPageKnowItsRecordsAndItsNumber() {
        const QByteArray foot = item("txtPrice", R"("field": "Price")") + ", " +
                                item("txtFirst", R"("field": "Price", "record": "first")") + ", " +
                                item("lblPage", R"("parameter": "Page")") + ", " +
                                item("lblPages", R"("parameter": "Pages")");
        const QByteArray head =
            item("txtOpening", R"("field": "Price")") + ", " + item("txtLast", R"("field": "Price", "record": "last")");
        const ReportLayout tried =
            layout({band("pageHeader", 240, head), band("detail", third, {}), band("pageFooter", 240, foot)});
        const QList<ReportPage> made = pages(tried, sales(fiveRows));
        QCOMPARE(shown(made, u"txtOpening"_qs), u"1|4000"_qs);
        QCOMPARE(shown(made, u"txtLast"_qs), u"300|50000"_qs);
        QCOMPARE(shown(made, u"txtFirst"_qs), u"1|4000"_qs);
        QCOMPARE(shown(made, u"txtPrice"_qs), u"300|50000"_qs);
        QCOMPARE(shown(made, u"lblPage"_qs), u"1|2"_qs);
        QCOMPARE(shown(made, u"lblPages"_qs), u"2|2"_qs);
    }

    // The foot of the last page has no rows above it when the group's footer went over the leaf alone.
    void aPageWithoutRowsHasNoSumAndShowsTheRecordBefore() {
        const ReportLayout tried = layout({band("detail", 16000, {}), band("groupFooter", 1000, {}),
                                           band("pageFooter", 240,
                                                item("txtSum", R"("sum": "Price", "over": "page")") + ", " +
                                                    item("txtFirst", R"("field": "Price", "record": "first")"))});
        const QList<ReportPage> made = pages(tried, sales({{u"A"_qs, 7}}));
        QCOMPARE(shown(made, u"txtSum"_qs), u"7|"_qs);
        QCOMPARE(shown(made, u"txtFirst"_qs), u"7|7"_qs);
    }

    void datesTakeTheirForm_data() {
        QTest::addColumn<QByteArray>("form");
        QTest::addColumn<QString>("date");
        QTest::newRow("western") << QByteArray("yyyy/mm/dd") << u"2024/11/03"_qs;
        QTest::newRow("western with words") << QByteArray("yyyy年mm月dd日 作成") << u"2024年11月03日 作成"_qs;
        QTest::newRow("month and day") << QByteArray("mm/dd") << u"11/03"_qs;
        QTest::newRow("era") << QByteArray("ggge年m月d日") << u"令和6年11月3日"_qs;
        QTest::newRow("letter of the era") << QByteArray("gee.mm.dd") << u"R06.11.03"_qs;
    }
    void datesTakeTheirForm() {
        QFETCH(QByteArray, form);
        const ReportLayout tried = layout({band("detail", 240, item("txtDay", "\"date\": \"" + form + '"'))});
        const QVariant day = u"2024/11/03 9:05:00"_qs;
        QTEST(shown(pages(tried, sales({{u"A"_qs, 1, day}, {u"A"_qs, 1}, {u"A"_qs, 1, u"未定"_qs}})), u"txtDay"_qs),
              "date");
    }

    void digitsStandInTheirBoxesFromTheRight_data() {
        QTest::addColumn<QVariant>("price");
        QTest::addColumn<QString>("places");
        QTest::newRow("units") << QVariant(5) << u"￥@500 5@600"_qs;
        QTest::newRow("zero") << QVariant(0) << u"￥@500 0@600"_qs;
        QTest::newRow("four digits") << QVariant(1205) << u"￥@200 1@300 2@400 0@500 5@600"_qs;
        QTest::newRow("all boxes full") << QVariant(1234567) << u"￥@-100 1@0 2@100 3@200 4@300 5@400 6@500 7@600"_qs;
        QTest::newRow("nothing") << QVariant() << QString();
    }
    void digitsStandInTheirBoxesFromTheRight() {
        QFETCH(QVariant, price);
        const ReportLayout tried = layout({band("detail", 240, item("txtPrice", R"("digits": 7, "lead": "￥")"))});
        const QList<ReportPage> made = pages(tried, sales({{u"A"_qs, price}}));
        QStringList places;
        for (const ReportPageText& text : made.first().texts) {
            QCOMPARE(text.room.width, 100);
            places << u"%1@%2"_qs.arg(text.text).arg(text.room.x);
        }
        QTEST(places.join(u' '), "places");
    }

    void digitsThatDoNotFitAreToldByTheirFigure_data() {
        QTest::addColumn<QVariant>("price");
        QTest::addColumn<QString>("figure");
        QTest::newRow("too many") << QVariant(12345678) << u"12,345,678"_qs;
        QTest::newRow("negative") << QVariant(-500) << u"-500"_qs;
    }
    void digitsThatDoNotFitAreToldByTheirFigure() {
        QFETCH(QVariant, price);
        QFETCH(QString, figure);
        const ReportLayout tried = layout({band("detail", 240, item("txtPrice", R"("digits": 7)"))});
        try {
            pages(tried, sales({{u"A"_qs, 1}, {u"A"_qs, price}}));
            QFAIL("no error");
        } catch (const ReportValueError& error) {
            QCOMPARE(error.description(), figure + u" は 7 桁の枠に収まりません。"_qs);
            QVERIFY(error.source().contains(u"tried") && error.source().contains(u"txtPrice"));
        }
    }

    void textsOfDigitsKeepTheirZeros() {
        Sales days = sales({{u"07"_qs, 1}});
        const ReportLayout tried = layout({band("detail", 240, item("txtOrder", R"("digits": 2)"))});
        QCOMPARE(shown(pages(tried, days), u"txtOrder"_qs), u"0 7"_qs);
    }

    void aFormIsOnePageForEachGroup() {
        const QByteArray numbers = item("lblPageOf", R"("parameter": "PageOf")");
        const ReportLayout form =
            layout({band("groupHeader", 3000, item("txtOrder", R"("field": "Order")") + ", " + numbers),
                    band("detail", 240, rowItem)});
        const QList<ReportPage> made = pages(form, sales(fiveRows), ReportRowPlan::Form);
        QCOMPARE(shown(made, u"txtOrder"_qs), u"A|B"_qs);
        QCOMPARE(shown(made, u"txtPrice"_qs), u"1 20|300 4000 50000"_qs);
        QCOMPARE(shown(made, u"lblPageOf"_qs), u"|"_qs);
    }

    void aFormForEachRecordOrForTheReportIsAMatterOfItsGroups() {
        const ReportLayout form = layout({band("detail", 240, rowItem)});
        Sales each = sales(fiveRows), one = each;
        for (qsizetype row = 0; row < each.groups.size(); ++row) each.groups[row] = QString::number(row);
        one.groups.fill(QString());
        QCOMPARE(shown(pages(form, each, ReportRowPlan::Form), u"txtPrice"_qs), u"1|20|300|4000|50000"_qs);
        QCOMPARE(shown(pages(form, one, ReportRowPlan::Form), u"txtPrice"_qs), u"1 20 300 4000 50000"_qs);
    }

    void landscapePaperIsWiderThanHigh() {
        const ReportLayout wide = layout({band("detail", 4000, rowItem)}, R"("orientation": "landscape", )");
        const QList<ReportPage> made = pages(wide, sales(fiveRows));
        QCOMPARE(made.first().paperWidth, 16838);
        QCOMPARE(made.first().paperHeight, 11906);
        QCOMPARE(shown(made, u"txtPrice"_qs), u"1 20|300 4000|50000"_qs);
    }

    void whatALayoutNamesAndTheReportLacksIsToldWithItsPlace_data() {
        QTest::addColumn<QByteArray>("item");
        QTest::addColumn<QStringList>("told");
        const QString place = u"tried.json の bands.reportFooter.items.x"_qs;
        QTest::newRow("field") << item("x", R"("field": "Price+Nothing")") << QStringList{place, u"項目「Nothing」"_qs};
        QTest::newRow("sum") << item("x", R"("sum": "Nothing", "over": "page")")
                             << QStringList{place, u"項目「Nothing」"_qs};
        QTest::newRow("value") << item("x", R"("parameter": "Nobody")") << QStringList{place, u"値「Nobody」"_qs};
        QTest::newRow("condition of a text")
            << item("x", R"("text": "a", "showIf": "Nobody")") << QStringList{place, u"値「Nobody」"_qs};
        QTest::newRow("condition of a line") << QByteArray(R"("x": {"line": [0, 0, 1, 1], "showIf": "Nobody"})")
                                             << QStringList{place, u"値「Nobody」"_qs};
        QTest::newRow("condition of a box") << QByteArray(R"("x": {"box": [0, 0, 1, 1], "showIf": "Nobody"})")
                                            << QStringList{place, u"値「Nobody」"_qs};
    }
    void whatALayoutNamesAndTheReportLacksIsToldWithItsPlace() {
        QFETCH(QByteArray, item);
        QFETCH(QStringList, told);
        const QString message =
            fault(layout({band("detail", 240, rowItem), band("reportFooter", 240, item)}), sales(fiveRows));
        for (const QString& words : told) QVERIFY2(message.contains(words), qPrintable(message));
    }

    void whatTheReportHasIsNoFault() {
        QCOMPARE(fault(layout({band("detail", 240, item("lblOffice", R"("parameter": "Office", "showIf": "PageOf")"))}),
                       sales(fiveRows)),
                 u"no fault"_qs);
    }
};

HALVANE_TEST(ReportComposerTest)
#include "ReportComposerTest.moc"
