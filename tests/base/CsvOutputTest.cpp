#include "HalvaneTest.h"

#include "support/CapturedMessages.h"
#include "support/FileLimit.h"
#include "support/ProgramFolder.h"

#include "base/CsvOutput.h"
#include "base/Seams.h"
#include "base/Text.h"
#include "base/clsLogger.h"
#include "base/clsProfile.h"

#include <QFile>
#include <QScopeGuard>

class CsvOutputTest : public QObject {
    Q_OBJECT

    static CsvLacking lacking(const QStringList& columns, const QList<CsvRow>& rows) {
        CsvLacking found(columns);
        for (const CsvRow& row : rows) found.add(row);
        return found;
    }

private slots:
    void chosenCsvPathIsRemembered() {
        ProgramFolder folder;
        folder.writeProfile("[SaveFile]\r\nEstCsvPath=/tmp/old\r\nEstCsvFile=est.csv\r\n");
        FileDialogRequest shown;
        const QString chosen = folder.path(u"見積/x.csv"_qs);
        seams().saveFile = [&](FileDialogRequest& request) {
            shown = request;
            return chosen;
        };
        QString path;
        const bool answered = AskCsvSavePath(path);
        seams().saveFile = defaultSeams().saveFile;
        QVERIFY(answered);
        QCOMPARE(path, chosen);
        QCOMPARE(shown.fileName, u"est.csv"_qs);
        QVERIFY(shown.folder.startsWith(u"/tmp/old"_qs));
        QCOMPARE(shown.filter, 2);
        QCOMPARE(shown.filters.size(), 3);
        QCOMPARE(clsProfile().GetValue(u"SaveFile"_qs, u"EstCsvPath"_qs), folder.path(u"見積/"_qs));
        QCOMPARE(clsProfile().GetValue(u"SaveFile"_qs, u"EstCsvFile"_qs), u"x.csv"_qs);
    }

    void encodingIsAChoiceAmongTheFileTypes() {
        ProgramFolder folder;
        folder.writeProfile("[SaveFile]\r\n");
        int chosenFilter = 2;
        seams().saveFile = [&](FileDialogRequest& request) {
            request.filter = chosenFilter;
            return request.filters.size() == 4 ? folder.path(u"x.csv"_qs) : QString();
        };
        QString path;
        Csv::Encoding encoding = Csv::Encoding::Utf8;
        const bool first = AskCsvSavePath(path, encoding);
        const Csv::Encoding narrow = encoding;
        chosenFilter = 3;
        const bool second = AskCsvSavePath(path, encoding);
        seams().saveFile = defaultSeams().saveFile;
        QVERIFY(first && second);
        QCOMPARE(narrow, Csv::Encoding::Cp932);
        QCOMPARE(encoding, Csv::Encoding::Utf8);
    }

    void aPlaceThatCannotBeRememberedIsToldOnceAndTheWorkGoesOn() {
        const CapturedMessages messages;
        ProgramFolder folder;
        folder.writeProfile("[DB]\r\nPassWd=x\r\n");
        seams().saveFile = [&](FileDialogRequest&) { return folder.path(u"x.csv"_qs); };
        const auto end = qScopeGuard([] { seams().saveFile = defaultSeams().saveFile; });
        const FileLimit limit(0);
        for (int i = 0; i < 2; ++i) {
            QString path;
            QVERIFY(AskCsvSavePath(path));
            QCOMPARE(path, folder.path(u"x.csv"_qs));
        }
        QCOMPARE(messages.texts.size(), 1);
        QVERIFY(messages.texts.first().startsWith(u"INIﾌｧｲﾙに書き込めません。"_qs));
        QCOMPARE(folder.read(u"Halvane.ini"_qs), QByteArray("[DB]\r\nPassWd=x\r\n"));
    }

    void cancelledCsvDialogRemembersNothing() {
        ProgramFolder folder;
        folder.writeProfile("[SaveFile]\r\nEstCsvFile=est.csv\r\n");
        const QByteArray before = folder.read(u"Halvane.ini"_qs);
        QString path;
        QVERIFY(!AskCsvSavePath(path));
        QCOMPARE(path, QString());
        QCOMPARE(folder.read(u"Halvane.ini"_qs), before);
    }

    void lackingCharactersAreToldByRowPersonAndField() {
        const CsvRow plain{{u"髙橋"_qs, u"①"_qs}, u"1 髙橋"_qs};
        const CsvRow row{{u"①髙🙂"_qs, u"𠮷田ビル"_qs}, u"2024000013 髙橋　信二"_qs};
        QCOMPARE(
            lacking({u"住所1"_qs, u"住所2"_qs}, {plain, row}).told(),
            u"2行目（2024000013 髙橋　信二） 住所1：🙂\n2行目（2024000013 髙橋　信二） 住所2：𠮷"_qs);
    }

    void signsThatNobodySeesAreToldByTheirCodePoint() {
        QCOMPARE(lacking({u"市区郡"_qs}, {{{u"葛\U000E0100城市\u200B"_qs}, u"髙橋"_qs}}).told(),
                 u"1行目（髙橋） 市区郡：葛（異体字 U+E0100）、市（見えない文字 U+200B）"_qs);
    }

    void aTextThatLacksNothingIsNotTold() { QVERIFY(lacking({u"名"_qs}, {{{u"髙橋①"_qs}, {}}}).isEmpty()); }

    void fifteenAreAllToldTheSixteenthIsCounted() {
        QList<CsvRow> rows(15, {{u"𠮷"_qs}, u"𠮷田"_qs});
        const QString all = lacking({u"名前1"_qs}, rows).told();
        QCOMPARE(all.count(u'\n'), 14);
        QVERIFY(all.endsWith(u"15行目（𠮷田） 名前1：𠮷"_qs));
        rows << rows.first();
        QCOMPARE(lacking({u"名前1"_qs}, rows).told(), all + u"\nほか 1か所（すべての箇所はログに記録しました）"_qs);
    }

    void manyAreCounted() {
        const ProgramFolder folder;
        folder.writeProfile("[Log]\r\nPath=.\r\n");
        gLogger = std::make_unique<clsLogger>();
        const auto end = qScopeGuard([] { gLogger.reset(); });
        const QList<CsvRow> rows(1300, {{u"𠮷"_qs}, u"2024000013 𠮷田"_qs});
        const QString told = lacking({u"名前1"_qs}, rows).told();
        QCOMPARE(told.count(u'\n'), 15);
        QVERIFY(told.endsWith(u"ほか 1,285か所（すべての箇所はログに記録しました）"_qs));
        QFile log(gLogger->FileNm());
        QVERIFY(log.open(QIODevice::ReadOnly));
        const QString lines = Text::fromCp932(log.readAll());
        QCOMPARE(lines.count(u"Shift_JIS にない文字 "_qs), 1300);
        QVERIFY(lines.contains(u"1,300行目 名前1：U+20BB7"_qs));
        QVERIFY(!lines.contains(u'田')); // of the person
    }
};

HALVANE_TEST(CsvOutputTest)
#include "CsvOutputTest.moc"
