#include "HalvaneTest.h"

#include "base/AppError.h"
#include "reports/ReportClasses.h"
#include "reports/ReportLayout.h"

#include <QRandomGenerator>

namespace {

const QByteArray whole = R"({
  "paper": "A4",
  "margins": {"top": 1, "bottom": 2, "left": 3, "right": 4},
  "fonts": {"body": {"family": "gothic", "size": 9.5}},
  "bands": {
    "detail": {
      "height": 260,
      "items": {
        "txtPrice": {"at": [10, 20, 300, 240], "align": "right", "format": "#,##0"},
        "lblOffice": {"at": [0, 0, 10, 10], "showIf": "Office"},
        "lblTitle": {"field": "Copy", "words": {"2": "copy"}, "otherwise": "original", "at": [0, 0, 10, 10]},
        "txtBoth": {"field": "Pref+City", "at": [0, 0, 10, 10], "fit": "wrap", "sizes": [[14, 7]]},
        "linRow": {"line": [0, 260, 100, 260], "dash": true},
        "boxAll": {"box": [0, 0, 100, 260], "width": 20, "shade": 10}
      }
    }
  }
})";

QByteArray changed(const char* from, const char* to) { return QByteArray(whole).replace(from, to); }

// A source of two files: the layout asked for and what it may be based on.
ReportLayoutSource files(const QByteArray& layout, const QByteArray& base = {}) {
    return [=](const QString& name) { return name == u"layout" ? layout : name == u"base" ? base : QByteArray(); };
}

QString fault(const QByteArray& layout, const QByteArray& base = {}) {
    try {
        loadReportLayout(u"layout"_qs, files(layout, base));
        return u"no fault"_qs;
    } catch (const AppError& error) {
        return error.description();
    }
}

const ReportTextItem& textNamed(const ReportLayout& layout, const QString& name) {
    for (const ReportTextItem& item : layout.band(ReportBandKind::Detail).texts)
        if (item.name == name) return item;
    throw AppError(u"no text "_qs + name);
}

} // namespace

class ReportLayoutTest : public QObject {
    Q_OBJECT

private slots:
    void everyPartIsRead() {
        const ReportLayout layout = loadReportLayout(u"layout"_qs, files(whole));
        QCOMPARE(layout.paperWidth, 11906);
        QCOMPARE(layout.paperHeight, 16838);
        QCOMPARE(layout.margins.right, 4);
        QVERIFY(!layout.groupOnNewPage);
        const ReportBand& detail = layout.band(ReportBandKind::Detail);
        QCOMPARE(detail.height, 260);
        QCOMPARE(detail.lines.size(), 1);
        QVERIFY(detail.lines.first().dashed);
        QCOMPARE(detail.boxes.first().shade, 10);
        const ReportTextItem price = textNamed(layout, u"txtPrice"_qs);
        QCOMPARE(price.at, (ReportRect{10, 20, 300, 240}));
        QCOMPARE(price.fields, QStringList{u"Price"_qs});
        QCOMPARE(price.align, ReportAlign::Right);
        QCOMPARE(price.font, (ReportFont{true, 9.5, false}));
        QCOMPARE(textNamed(layout, u"lblOffice"_qs).parameter, u"lblOffice"_qs);
        QCOMPARE(textNamed(layout, u"lblTitle"_qs).words.value(u"2"_qs), u"copy"_qs);
        QCOMPARE(textNamed(layout, u"txtBoth"_qs).fields, (QStringList{u"Pref"_qs, u"City"_qs}));
        QCOMPARE(textNamed(layout, u"txtBoth"_qs).sizes.first().overBytes, 14);
    }

    void everyPartOfAFootIsRead() {
        const QByteArray foot = changed(R"("detail": {)", R"("pageFooter": {"height": 1, "items": {
            "txtSum": {"sum": "Price", "over": "running", "at": [0, 0, 1, 1]},
            "txtDay": {"date": "ggge年", "record": "last", "at": [0, 0, 1, 1]},
            "txtBoxes": {"digits": 7, "lead": "￥", "at": [0, 0, 70, 1]}}}, "detail": {)");
        const ReportLayout layout = loadReportLayout(u"layout"_qs, files(foot));
        QHash<QString, ReportTextItem> items;
        for (const ReportTextItem& item : layout.band(ReportBandKind::PageFooter).texts) items.insert(item.name, item);
        QCOMPARE(items.value(u"txtSum"_qs).sum, u"Price"_qs);
        QCOMPARE(items.value(u"txtSum"_qs).over, ReportSumOver::Running);
        QVERIFY(items.value(u"txtSum"_qs).fields.isEmpty());
        QCOMPARE(items.value(u"txtDay"_qs).date, u"ggge年"_qs);
        QCOMPARE(items.value(u"txtDay"_qs).record, ReportRecordOf::Last);
        QCOMPARE(items.value(u"txtBoxes"_qs).digits, 7);
        QCOMPARE(items.value(u"txtBoxes"_qs).lead, u"￥"_qs);
    }

    void paperMayLieOnItsSide() {
        const QByteArray wide = changed("\"A4\"", "\"B5\", \"orientation\": \"landscape\"");
        const ReportLayout layout = loadReportLayout(u"layout"_qs, files(wide));
        QCOMPARE(layout.paperWidth, 14570);
        QCOMPARE(layout.paperHeight, 10318);
    }

    void aTypeMaySpaceItsLetters() {
        const QByteArray spaced = changed("\"size\": 9.5", "\"size\": 9.5, \"spacing\": 100");
        const ReportLayout layout = loadReportLayout(u"layout"_qs, files(spaced));
        QCOMPARE(textNamed(layout, u"txtPrice"_qs).font, (ReportFont{true, 9.5, false, 100}));
    }

    void aVariantMayBeTheSameOnASmallerPaper() {
        const QByteArray variant = R"({"base": "base", "paper": "B5", "scale": 500})";
        const ReportLayout layout = loadReportLayout(u"layout"_qs, files(variant, whole));
        const ReportBand& detail = layout.band(ReportBandKind::Detail);
        QCOMPARE(layout.paperWidth, 10318);
        QCOMPARE(layout.margins.bottom, 1);
        QCOMPARE(detail.height, 130);
        QCOMPARE(textNamed(layout, u"txtPrice"_qs).at, (ReportRect{5, 10, 150, 120}));
        QCOMPARE(textNamed(layout, u"txtPrice"_qs).font.size, 4.5); // down to half a point
        QCOMPARE(textNamed(layout, u"txtBoth"_qs).sizes.first().size, 3.5);
        QCOMPARE(detail.boxes.first().at, (ReportRect{0, 0, 50, 130}));
        QCOMPARE(detail.boxes.first().width, 20); // a stroke keeps its strength
        QCOMPARE(detail.lines.first().x2, 50);
    }

    void digitsOfASmallerPaperKeepBoxesOfOneWidth() {
        const QByteArray digits = changed("\"format\": \"#,##0\"", "\"digits\": 6");
        const QByteArray variant = R"({"base": "base", "paper": "B5", "scale": 865})";
        QCOMPARE(textNamed(loadReportLayout(u"layout"_qs, files(variant, digits)), u"txtPrice"_qs).at.width % 6, 0);
    }

    void aVariantChangesAddsAndTakesAway() {
        const QByteArray variant = R"({"base": "base", "paper": "B5", "bands": {"detail": {"items": {
            "txtPrice": {"at": [1, 2, 3, 4]}, "lblOffice": null, "lblNew": {"text": "new", "at": [0, 0, 1, 1]}}}}})";
        const ReportLayout layout = loadReportLayout(u"layout"_qs, files(variant, whole));
        QCOMPARE(layout.paperWidth, 10318);
        QCOMPARE(layout.paperHeight, 14570);
        QCOMPARE(textNamed(layout, u"txtPrice"_qs).at, (ReportRect{1, 2, 3, 4}));
        QCOMPARE(textNamed(layout, u"txtPrice"_qs).format, u"#,##0"_qs);
        QCOMPARE(textNamed(layout, u"lblNew"_qs).text, u"new"_qs);
        QVERIFY_EXCEPTION_THROWN(textNamed(layout, u"lblOffice"_qs), AppError);
    }

    void faultsNameFileAndPlace_data() {
        QTest::addColumn<QByteArray>("layout");
        QTest::addColumn<QStringList>("told");
        const auto row = [](const char* name, const QByteArray& layout, const QStringList& told) {
            QTest::newRow(name) << layout << told;
        };
        row("broken text", changed("\"paper\": \"A4\",", "\"paper\": \"A4\""), {u"layout.json"_qs, u"3 行"_qs});
        row("no object", "[1, 2]", {u"layout.json"_qs, u"1 行"_qs});
        row("empty file", "", {u"layout.json"_qs, u"1 行 1 桁"_qs});
        row("a name twice", changed("\"lblOffice\"", "\"txtPrice\""),
            {u"layout.json"_qs, u"10 行 9 桁"_qs, u"二度"_qs});
        row("no scale", changed("\"A4\"", "\"A4\", \"scale\": 0"), {u"layout.json"_qs, u"scale"_qs});
        row("a larger scale", changed("\"A4\"", "\"A4\", \"scale\": 1001"), {u"scale"_qs, u"1000"_qs});
        row("unknown paper", changed("A4", "A3"), {u"paper"_qs});
        row("unknown key", changed("\"align\"", "\"allign\""), {u"bands.detail.items.txtPrice.allign"_qs});
        row("unknown band", changed("\"detail\"", "\"details\""), {u"bands.details"_qs});
        row("unknown choice", changed("\"right\", \"format\"", "\"middle\", \"format\""),
            {u"txtPrice.align"_qs, u"center"_qs});
        row("fraction of a twip", changed("[10, 20,", "[10.5, 20,"), {u"txtPrice.at[0]"_qs, u"整数"_qs});
        row("too few numbers", changed("[10, 20, 300, 240]", "[10, 20, 300]"), {u"txtPrice.at"_qs, u"4 個"_qs});
        row("negative width", changed("300, 240", "-300, 240"), {u"txtPrice.at"_qs});
        row("no place", changed("\"at\": [10, 20, 300, 240], ", ""), {u"txtPrice.at"_qs});
        row("text for a number", changed("\"height\": 260", "\"height\": \"260\""), {u"bands.detail.height"_qs});
        row("no height", changed("\"height\": 260,", ""), {u"bands.detail.height"_qs});
        row("no fonts", changed("\"body\"", "\"other\""), {u"body"_qs, u"fonts"_qs});
        row("size of nothing", changed("9.5", "0"), {u"fonts.body.size"_qs});
        row("two values", changed("\"field\": \"Copy\"", "\"field\": \"Copy\", \"text\": \"x\""), {u"lblTitle"_qs});
        row("shade beyond black", changed("\"shade\": 10", "\"shade\": 101"), {u"boxAll.shade"_qs});
        row("unknown orientation", changed("\"A4\"", "\"A4\", \"orientation\": \"sideways\""),
            {u"orientation"_qs, u"landscape"_qs});
        const auto price = [](const char* keys) { return changed("\"format\": \"#,##0\"", keys); };
        row("a sum of what it has", price("\"sum\": \"Price\""), {u"txtPrice"_qs, u"over"_qs});
        row("nothing to sum", price("\"over\": \"page\""), {u"txtPrice"_qs, u"sum"_qs});
        row("a sum and a field", price("\"sum\": \"Price\", \"over\": \"page\", \"field\": \"Price\""),
            {u"txtPrice"_qs, u"どれか一つ"_qs});
        row("over nothing known", price("\"sum\": \"Price\", \"over\": \"year\""),
            {u"txtPrice.over"_qs, u"running"_qs});
        row("no form of a date", price("\"date\": \"wann\""), {u"txtPrice.date"_qs, u"yyyy/mm/dd"_qs});
        row("a date and a number", price("\"format\": \"0\", \"date\": \"yyyy\""), {u"txtPrice"_qs, u"format"_qs});
        row("no boxes for digits", price("\"digits\": 0"), {u"txtPrice.digits"_qs});
        row("boxes of different width", price("\"digits\": 7"), {u"txtPrice.digits"_qs, u"割り切れる"_qs});
        row("a sign before no digits", price("\"lead\": \"￥\""), {u"txtPrice.lead"_qs});
        row("two signs before digits", price("\"digits\": 3, \"lead\": \"￥ \""), {u"txtPrice.lead"_qs});
        row("a record of no page", price("\"record\": \"last\""), {u"txtPrice.record"_qs, u"pageFooter"_qs});
        row("margins as a number", changed("{\"top\": 1, \"bottom\": 2, \"left\": 3, \"right\": 4}", "5"),
            {u"margins"_qs});
        row("beyond any paper", changed("[10, 20,", "[1e300, 20,"), {u"txtPrice.at[0]"_qs});
        row("missing base", R"({"base": "nowhere"})", {u"nowhere.json"_qs});
        row("based on itself", R"({"base": "layout"})", {u"layout.json"_qs, u"base"_qs, u"循環"_qs});
    }
    void faultsNameFileAndPlace() {
        QFETCH(QByteArray, layout);
        QFETCH(QStringList, told);
        const QString message = fault(layout);
        for (const QString& words : told) QVERIFY2(message.contains(words), qPrintable(message));
    }

    void aFaultOfTheBaseIsToldWithItsOwnName() {
        const QString message = fault(R"({"base": "base"})", changed("\"height\": 260", "\"height\": -1"));
        QVERIFY2(message.contains(u"base.json") && message.contains(u"detail.height"), qPrintable(message));
    }

    void layoutsBasedOnEachOtherAreAFault() {
        QVERIFY(fault(R"({"base": "base"})", R"({"base": "layout"})").contains(u"循環"));
    }

    void aMissingLayoutIsNamed() {
        try {
            loadReportLayout(u"repNothing"_qs);
            QFAIL("no error");
        } catch (const AppError& error) {
            QVERIFY(error.description().contains(u"repNothing.json"));
        }
    }

    // Whatever is broken in the file, loading ends in a layout or in an error that can be shown.
    void aDamagedFileNeverDoesMoreThanRaiseAnError() {
        QRandomGenerator random(20241103);
        int faults = 0;
        constexpr int rounds = 4000;
        for (int round = 0; round < rounds; ++round) {
            QByteArray damaged = whole;
            for (int blow = random.bounded(1, 6); blow > 0 && !damaged.isEmpty(); --blow) {
                const int at = random.bounded(static_cast<int>(damaged.size()));
                switch (random.bounded(4)) {
                case 0:
                    damaged[at] = static_cast<char>(random.bounded(256));
                    break;
                case 1:
                    damaged.remove(at, random.bounded(1, 40));
                    break;
                case 2:
                    damaged.insert(at, damaged.mid(random.bounded(static_cast<int>(damaged.size())), 30));
                    break;
                default:
                    damaged.truncate(at);
                    break;
                }
            }
            if (fault(damaged) != u"no fault") ++faults;
        }
        QVERIFY(faults > rounds / 2);
    }

    void everyReportClassHasItsLayout() {
        for (const ReportClass& report : estimateDocuments()) {
            const ReportLayout layout = loadReportLayout(report.name);
            QCOMPARE(layout.name, report.name);
            QVERIFY(layout.groupOnNewPage);
            const bool small = report.name.contains(u"B5");
            QCOMPARE(layout.paperWidth, small ? 10318 : 11906);
            if (!small) QCOMPARE(layout.band(ReportBandKind::Detail).height, 260);
        }
    }
};

HALVANE_TEST(ReportLayoutTest)
#include "ReportLayoutTest.moc"
