#include "HalvaneTest.h"

#include "base/AppError.h"
#include "base/Csv.h"

#include <QTemporaryDir>

class CsvTest : public QObject {
    Q_OBJECT

private slots:
    void linesAreRead_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QList<QStringList>>("lines");
        const auto row = [](const char* name, const QString& text, const QList<QStringList>& lines) {
            QTest::newRow(name) << text << lines;
        };
        row("empty text", {}, {});
        row("plain", u"a,b\nc,d\n"_qs, {{u"a"_qs, u"b"_qs}, {u"c"_qs, u"d"_qs}});
        row("no end of line", u"a,b"_qs, {{u"a"_qs, u"b"_qs}});
        row("Windows ends of line", u"a\r\nb\r\n"_qs, {{u"a"_qs}, {u"b"_qs}});
        row("empty lines are none", u"a\n\n\nb\n"_qs, {{u"a"_qs}, {u"b"_qs}});
        row("empty fields", u",,\n"_qs, {{QString(), QString(), QString()}});
        row("empty last field", u"a,"_qs, {{u"a"_qs, QString()}});
        row("comma in quotes", u"\"a,b\",c\n"_qs, {{u"a,b"_qs, u"c"_qs}});
        row("line break in quotes", u"\"a\nb\",c\n"_qs, {{u"a\nb"_qs, u"c"_qs}});
        row("doubled quote", u"\"a\"\"b\"\n"_qs, {{u"a\"b"_qs}});
        row("quote that is not closed", u"\"a,b\nc"_qs, {{u"a,b\nc"_qs}});
        row("quoted empty field alone", u"\"\"\nb\n"_qs, {{QString()}, {u"b"_qs}});
        row("Windows line break in quotes", u"\"a\r\nb\"\r\n"_qs, {{u"a\r\nb"_qs}});
    }
    void linesAreRead() {
        QFETCH(QString, text);
        QFETCH(QList<QStringList>, lines);
        QCOMPARE(Csv::read(text), lines);
    }

    void writtenLineReadsBack() {
        const QStringList fields{u"a,b"_qs, u"say \"x\""_qs, QString(), u"二行\nです"_qs, u" 'q' "_qs};
        QCOMPARE(Csv::read(Csv::quotedLine(fields)), QList<QStringList>{fields});
    }

    void noFieldBecomesAFormula() {
        for (const QString& field : {u"=1+1"_qs, u"+1+cmd"_qs, u"-x"_qs, u"@name"_qs, u"＝A1"_qs})
            QCOMPARE(Csv::harmless(field), u'\'' + field);
        for (const QString& field : {QString(), u"-5"_qs, u"-0.5"_qs, u"a=b"_qs, u"青木"_qs})
            QCOMPARE(Csv::harmless(field), field);
    }

    void whatNoSpreadsheetEvaluatesStaysAsItIs() {
        for (const QString& field : {u"-"_qs, u"－"_qs, u"="_qs, u"＠ホーム"_qs, u"＠"_qs, u"+81-52-123-4567"_qs,
                                     u"-(052) 123-4567"_qs, u"＋８１－５２"_qs, u"--- "_qs, u" - "_qs, u"\t"_qs})
            QCOMPARE(Csv::harmless(field), field);
    }

    void blanksAheadHideNoFormula() {
        for (const QString& field :
             {u"\t=1+1"_qs, u"  =A1"_qs, u"\r\n@x"_qs, u"　=A1"_qs, QString(QChar(0)) + u"=1+1"_qs})
            QCOMPARE(Csv::harmless(field), u'\'' + field);
    }

    void filesAreWrittenWholeOrNotAtAll() {
        QTemporaryDir folder;
        const QString path = folder.filePath(u"list.csv"_qs);
        const auto written = [&path] {
            QFile file(path);
            return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("none");
        };
        {
            Csv::Writer file(path, Csv::Encoding::Cp932);
            file.line({u"髙"_qs});
        }
        QCOMPARE(written(), QByteArray("none"));
        Csv::Writer narrow(path, Csv::Encoding::Cp932);
        narrow.line({u"あ"_qs, u"=1"_qs});
        narrow.commit();
        QCOMPARE(written(), QByteArray("\"\x82\xa0\",\"'=1\"\r\n"));
        Csv::Writer wide(path, Csv::Encoding::Utf8);
        wide.line({u"𠮷"_qs});
        wide.commit();
        QCOMPARE(written(), QByteArray("\xEF\xBB\xBF\"𠮷\"\r\n"));
        Csv::Writer lacking(path, Csv::Encoding::Cp932);
        QVERIFY_EXCEPTION_THROWN(lacking.line({u"𠮷"_qs}), AppError);
    }

    void signsThatNobodySeesAreNotDroppedInSilence() {
        QTemporaryDir folder;
        Csv::Writer narrow(folder.filePath(u"list.csv"_qs), Csv::Encoding::Cp932);
        QString told;
        try {
            narrow.line({u"辻\U000E0100"_qs, u"港\u200B区"_qs, u"青木"_qs});
        } catch (const AppError& error) {
            told = error.description();
        }
        QVERIFY2(told.endsWith(u"辻（異体字 U+E0100）、港（見えない文字 U+200B）"_qs), qPrintable(told));
        QVERIFY(!told.contains(u"青木"_qs)); // the log is given this text
    }

    void everyFieldIsWrittenInQuotes() {
        QCOMPARE(Csv::quotedLine({u"a"_qs, u"1"_qs, QString(), u"\""_qs}), u"\"a\",\"1\",\"\",\"\"\"\""_qs);
    }
};

HALVANE_TEST(CsvTest)
#include "CsvTest.moc"
