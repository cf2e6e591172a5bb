#include "HalvaneTest.h"

#include "base/Text.h"
#include "base/clsProfile.h"
#include "support/ProgramFolder.h"
#include "support/Raised.h"

namespace {

QByteArray cp932(const QString& text) { return Text::toCp932(text); }

QString valueIn(const QByteArray& file, const QString& section = u"DB"_qs, const QString& key = u"Path"_qs) {
    ProgramFolder folder;
    folder.writeProfile(file);
    return clsProfile().GetValue(section, key, u"default"_qs);
}

} // namespace

class clsProfileTest : public QObject {
    Q_OBJECT

private slots:
    void missingFileHasItsMessage() {
        ProgramFolder folder;
        const auto error = errorOf([] { clsProfile profile; });
        QVERIFY(error);
        QCOMPARE(error->description(), u"INIﾌｧｲﾙが見つかりません。"_qs);
        QCOMPARE(error->number(), 0x80040201);
    }

    void fileThatGoesAwayHasItsMessage() {
        ProgramFolder folder;
        folder.writeProfile("[DB]\r\n");
        const clsProfile profile;
        QFile::remove(profile.Path());
        QCOMPARE(raised([&] { profile.GetValue(u"DB"_qs, u"Path"_qs); }), u"INIﾌｧｲﾙが見つかりません。"_qs);
    }

    void pathIsInTheProgramFolder() {
        ProgramFolder folder;
        folder.writeProfile("");
        QCOMPARE(clsProfile().Path(), folder.path(u"Halvane.ini"_qs));
    }

    void valuesAreFound_data() {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QString>("value");
        QTest::newRow("plain") << QByteArray("[DB]\r\nPath=data\r\n") << u"data"_qs;
        QTest::newRow("case of section and key") << QByteArray("[db]\r\npATH=data\r\n") << u"data"_qs;
        QTest::newRow("blanks around") << QByteArray(" [ DB ] \r\n  Path  =  data  \r\n") << u"data"_qs;
        QTest::newRow("Unix ends of line") << QByteArray("[DB]\nPath=data\n") << u"data"_qs;
        QTest::newRow("no end of line") << QByteArray("[DB]\r\nPath=data") << u"data"_qs;
        QTest::newRow("empty value") << QByteArray("[DB]\r\nPath=\r\n") << QString();
        QTest::newRow("equals sign in the value") << QByteArray("[DB]\r\nPath=a=b\r\n") << u"a=b"_qs;
        QTest::newRow("double quotes around") << QByteArray("[DB]\r\nPath=\" a \"\r\n") << u" a "_qs;
        QTest::newRow("single quotes around") << QByteArray("[DB]\r\nPath=' a '\r\n") << u" a "_qs;
        QTest::newRow("quote at one side stays") << QByteArray("[DB]\r\nPath=\"a\r\n") << u"\"a"_qs;
        QTest::newRow("remark") << QByteArray("[DB]\r\n;Path=no\r\nPath=data\r\n") << u"data"_qs;
        QTest::newRow("missing key") << QByteArray("[DB]\r\nPathX=no\r\n") << u"default"_qs;
        QTest::newRow("missing section") << QByteArray("[Log]\r\nPath=no\r\n") << u"default"_qs;
        QTest::newRow("key behind its section") << QByteArray("[DB]\r\n[Log]\r\nPath=no\r\n") << u"default"_qs;
        QTest::newRow("key ahead of all sections") << QByteArray("Path=no\r\n[DB]\r\n") << u"default"_qs;
        QTest::newRow("double-byte value") << cp932(u"[DB]\r\nPath=表示ソ\r\n"_qs) << u"表示ソ"_qs;
        QTest::newRow("empty file") << QByteArray() << u"default"_qs;
    }
    void valuesAreFound() {
        QFETCH(QByteArray, file);
        QTEST(valueIn(file), "value");
    }

    void lastWriteWins() {
        ProgramFolder folder;
        folder.writeProfile("[DB]\r\nPath=a\r\n");
        const clsProfile profile;
        profile.SaveValue(u"DB"_qs, u"Path"_qs, u"b"_qs);
        profile.SaveValue(u"db"_qs, u"PATH"_qs, u"c"_qs);
        QCOMPARE(profile.GetValue(u"DB"_qs, u"Path"_qs), u"c"_qs);
        QCOMPARE(folder.read(u"Halvane.ini"_qs).toLower().count("path"), 1);
    }

    void newValuesStandInTheirSection() {
        ProgramFolder folder;
        folder.writeProfile("[DB]\r\nPath=a\r\n\r\n[Log]\r\nPath=b\r\n");
        const clsProfile profile;
        profile.SaveValue(u"DB"_qs, u"Database"_qs, u"x.db"_qs);
        profile.SaveValue(u"frmMenu"_qs, u"Top"_qs, u"120"_qs);
        QCOMPARE(folder.read(u"Halvane.ini"_qs),
                 QByteArray("[DB]\r\nPath=a\r\nDatabase=x.db\r\n\r\n[Log]\r\nPath=b\r\n[frmMenu]\r\nTop=120\r\n"));
    }

    void linesNotUnderstoodStay() {
        ProgramFolder folder;
        const QByteArray odd = "; remark\r\n[DB]\r\nno sign\r\n=nothing\r\n ; x=y\r\nPath=a\r\n[\r\n";
        folder.writeProfile(odd);
        clsProfile().SaveValue(u"DB"_qs, u"Path"_qs, u"b"_qs);
        QCOMPARE(folder.read(u"Halvane.ini"_qs), QByteArray(odd).replace("Path=a", "Path=b"));
    }

    // Bytes that are no text of the code page, or that would be spelled otherwise, belong to somebody.
    void bytesOfOtherLinesStayAsTheyAre() {
        ProgramFolder folder;
        const QByteArray odd = "[DB]\r\nOther=" + QByteArray::fromHex("ed40eef980fe82") + "\r\nPath=a\r\n";
        folder.writeProfile(odd);
        clsProfile().SaveValue(u"DB"_qs, u"Path"_qs, u"b"_qs);
        QCOMPARE(folder.read(u"Halvane.ini"_qs).toHex(), QByteArray(odd).replace("Path=a", "Path=b").toHex());
    }

    void valueWithALineBreakStaysOneLine() {
        ProgramFolder folder;
        folder.writeProfile("[DB]\r\n");
        const clsProfile profile;
        profile.SaveValue(u"DB"_qs, u"Path"_qs, u"a\r\n[Log]\r\nPath=evil"_qs);
        QCOMPARE(profile.GetValue(u"Log"_qs, u"Path"_qs, u"none"_qs), u"none"_qs);
        QCOMPARE(profile.GetValue(u"DB"_qs, u"Path"_qs), u"a [Log] Path=evil"_qs);
    }

    void savedValuesReadBack_data() {
        QTest::addColumn<QString>("value");
        QTest::newRow("empty") << QString();
        QTest::newRow("equals") << u"=a="_qs;
        QTest::newRow("semicolon") << u";a"_qs;
        QTest::newRow("bracket") << u"[a]"_qs;
        QTest::newRow("double-byte") << u"C:\\表示\\能"_qs;
    }
    void savedValuesReadBack() {
        QFETCH(QString, value);
        ProgramFolder folder;
        folder.writeProfile("[DB]\r\n");
        const clsProfile profile;
        profile.SaveValue(u"DB"_qs, u"Path"_qs, value);
        QCOMPARE(profile.GetValue(u"DB"_qs, u"Path"_qs), value);
    }

    void sectionGoesWithItsKeysAlone() {
        ProgramFolder folder;
        folder.writeProfile("[DB]\r\nPath=a\r\n[Log]\r\nPath=b\r\nSaveDays=1\r\n[Misc]\r\nX=1\r\n");
        const clsProfile profile;
        profile.DeleteSection(u"LOG"_qs);
        profile.DeleteSection(u"unknown"_qs);
        QCOMPARE(folder.read(u"Halvane.ini"_qs), QByteArray("[DB]\r\nPath=a\r\n[Misc]\r\nX=1\r\n"));
    }

    void aDeletedKeyTakesAnEmptySectionAlong_data() {
        QTest::addColumn<QByteArray>("before");
        QTest::addColumn<QByteArray>("after");
        QTest::newRow("the section holds more") << QByteArray("[Backup]\r\nPATH=a\r\nAuto=0\r\n[DB]\r\nX=1\r\n")
                                                << QByteArray("[Backup]\r\nAuto=0\r\n[DB]\r\nX=1\r\n");
        QTest::newRow("the section holds nothing else")
            << QByteArray("[A]\r\nX=1\r\n[backup]\r\nPath=a\r\n\r\n[DB]\r\nX=1\r\n")
            << QByteArray("[A]\r\nX=1\r\n[DB]\r\nX=1\r\n");
        QTest::newRow("a note stays") << QByteArray("[Backup]\r\n; where\r\nPath=a\r\n")
                                      << QByteArray("[Backup]\r\n; where\r\n");
        QTest::newRow("no such key") << QByteArray("[Backup]\r\nAuto=0\r\n") << QByteArray("[Backup]\r\nAuto=0\r\n");
        QTest::newRow("the last section")
            << QByteArray("[DB]\r\nX=1\r\n[Backup]\r\nPath=a\r\n") << QByteArray("[DB]\r\nX=1\r\n");
    }
    void aDeletedKeyTakesAnEmptySectionAlong() {
        QFETCH(QByteArray, before);
        const ProgramFolder folder;
        folder.writeProfile(before);
        clsProfile().DeleteValue(u"Backup"_qs, u"Path"_qs);
        QTEST(folder.read(u"Halvane.ini"_qs), "after");
    }

    void longValueIsCutInBytes_data() {
        QTest::addColumn<QString>("written");
        QTest::addColumn<QString>("read");
        const QString single(998, u'a');
        QTest::newRow("999 bytes") << single + u'b' << single + u'b';
        QTest::newRow("1000 bytes") << single + u"bc"_qs << single + u'b';
        QTest::newRow("2000 bytes") << QString(2000, u'a') << QString(999, u'a');
        QTest::newRow("double-byte character across the cut") << single + u'表' << single;
        QTest::newRow("double-byte character before the cut")
            << QString(997, u'a') + u"表x"_qs << QString(997, u'a') + u'表';
        QTest::newRow("all double-byte") << QString(600, u'能') << QString(499, u'能');
    }
    void longValueIsCutInBytes() {
        QFETCH(QString, written);
        QTEST(valueIn("[DB]\r\nPath=" + cp932(written) + "\r\n"), "read");
    }

    // What takes a second of work for each thousand signs would hold up every screen.
    void aValueOfManySignsIsCutAtOnce() {
        QCOMPARE(valueIn("[DB]\r\nPath=" + cp932(QString(200'000, u'能')) + "\r\n"), QString(499, u'能'));
        ProgramFolder folder;
        folder.writeProfile("[DB]\r\n");
        QCOMPARE(clsProfile().GetValue(u"DB"_qs, u"Path"_qs, QString(1200, u'a') + u"𠮷"_qs), QString(999, u'a'));
    }

    void fileInAnotherEncodingIsNamed_data() {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QString>("encoding");
        const QString text = u"; 設定\r\n[DB]\r\nPath=データ\r\n"_qs;
        const QByteArray sixteen(reinterpret_cast<const char*>(text.utf16()), text.size() * 2);
        QTest::newRow("UTF-8") << text.toUtf8() << u"UTF-8"_qs;
        QTest::newRow("UTF-8 with its mark") << "\xEF\xBB\xBF[DB]\r\n" + QByteArray() << u"UTF-8"_qs;
        QTest::newRow("UTF-16 with its mark") << "\xFF\xFE" + sixteen << u"UTF-16"_qs;
        QTest::newRow("UTF-16") << sixteen.mid(10) << u"UTF-16"_qs;
        QTest::newRow("UTF-16, the other way round") << QByteArray("\0[\0D\0B\0]", 8) << u"UTF-16"_qs;
        QTest::newRow("the code page") << Text::toCp932(text) << QString();
        QTest::newRow("half-width katakana") << Text::toCp932(u"[DB]\r\nPath=ﾄｲ\r\n"_qs) << QString();
        QTest::newRow("Latin alone") << QByteArray("[DB]\r\nPath=a\r\n") << QString();
    }
    void fileInAnotherEncodingIsNamed() {
        QFETCH(QByteArray, file);
        QFETCH(QString, encoding);
        ProgramFolder folder;
        folder.writeProfile(file);
        const clsProfile profile;
        const QString told = encoding.isEmpty() ? QString() : u"INIﾌｧｲﾙが %1 で保存されています。"_qs.arg(encoding);
        QCOMPARE(raised([&] { profile.GetValue(u"DB"_qs, u"Path"_qs); }).section(u"Shift_JIS"_qs, 0, 0), told);
        // Written to in the code page it would be spoiled for good.
        QCOMPARE(raised([&] { profile.SaveValue(u"DB"_qs, u"Path"_qs, u"x"_qs); }).section(u"Shift_JIS"_qs, 0, 0),
                 told);
        QCOMPARE(folder.read(u"Halvane.ini"_qs) == file, !encoding.isEmpty());
    }

    void numbersAreReadWithinTheirLimits_data() {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<qint64>("number");
        QTest::newRow("plain") << QByteArray("N=12") << qint64(12);
        QTest::newRow("missing") << QByteArray() << qint64(5);
        QTest::newRow("full width") << cp932(u"N=１２"_qs) << qint64(12);
        QTest::newRow("separators") << QByteArray("N=1,200") << qint64(1200);
        QTest::newRow("rounded to even") << QByteArray("N=2.5") << qint64(2);
        QTest::newRow("least") << QByteArray("N=-3") << qint64(-3);
        QTest::newRow("most") << QByteArray("N=2147483648") << qint64(2147483648);
    }
    void numbersAreReadWithinTheirLimits() {
        QFETCH(QByteArray, line);
        ProgramFolder folder;
        folder.writeProfile("[S]\r\n" + line + "\r\n");
        QTEST(clsProfile().GetNumber(u"S"_qs, u"N"_qs, 5, -3, 2147483648), "number");
    }

    void valueThatIsNoNumberNamesItsKey_data() {
        QTest::addColumn<QByteArray>("value");
        for (const char* value : {"", "abc", "-4", "2147483649", "99999999999999999999", "1e3", "1-2"})
            QTest::newRow(value) << QByteArray(value);
    }
    void valueThatIsNoNumberNamesItsKey() {
        QFETCH(QByteArray, value);
        ProgramFolder folder;
        folder.writeProfile("[DB]\r\nConnectionTimeout=" + value + "\r\n");
        const auto error =
            errorOf([] { clsProfile().GetNumber(u"DB"_qs, u"ConnectionTimeout"_qs, 5, -3, 2147483648); });
        QVERIFY(error);
        QCOMPARE(error->number(), value.toDouble() == 0 || value == "1e3" ? 13 : 6);
        const QString shown = value.isEmpty() ? u"空"_qs : QString::fromLatin1(value);
        QVERIFY2(error->description().contains(u"[DB] の ConnectionTimeout（%1）"_qs.arg(shown)),
                 qPrintable(error->description()));
    }

    void whatIsRememberedIsWrittenTogether() {
        ProgramFolder folder;
        folder.writeProfile("[DB]\r\n");
        clsProfile().Remember(u"frmMenu"_qs, {{u"Top"_qs, u"1"_qs}, {u"Left"_qs, u"2"_qs}});
        QCOMPARE(folder.read(u"Halvane.ini"_qs), QByteArray("[DB]\r\n[frmMenu]\r\nTop=1\r\nLeft=2\r\n"));
    }

    void pathsResolveAgainstTheProgramFolder_data() {
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("path");
        QTest::newRow("empty") << QString() << QString();
        QTest::newRow("relative") << u"data/x"_qs << u"<>/data/x"_qs;
        QTest::newRow("backslash") << u"data\\x"_qs << u"<>/data/x"_qs;
        QTest::newRow("absolute") << u"/srv/data"_qs << u"/srv/data"_qs;
        QTest::newRow("drive") << u"C:\\data"_qs << u"C:/data"_qs;
    }
    void pathsResolveAgainstTheProgramFolder() {
        QFETCH(QString, value);
        QFETCH(QString, path);
        ProgramFolder folder;
        folder.writeProfile("[DB]\r\nPath=" + cp932(value) + "\r\n");
        QCOMPARE(clsProfile().GetPath(u"DB"_qs, u"Path"_qs), path.replace(u"<>"_qs, folder.path()));
    }

    // Whatever stands in the file: it is read, a value can be saved, and that value reads back.
    void damagedFilesAreReadAndWrittenWithoutHarm() {
        quint32 seed = 19;
        const auto random = [&seed](quint32 below) {
            seed = seed * 1664525 + 1013904223;
            return (seed >> 8) % below;
        };
        const QList<QByteArray> parts{"[DB]", "[Log", "Path=", "\r\n",          "\n", "=", ";",
                                      "]",    "\"",   " ",     QByteArray(1, 0)};
        ProgramFolder folder;
        for (int round = 0; round < 120; ++round) {
            QByteArray bytes;
            for (quint32 i = random(60); i > 0; --i)
                bytes += random(2) ? parts.at(random(parts.size())) : QByteArray(1, char(random(256)));
            folder.writeProfile(bytes);
            const clsProfile profile;
            profile.GetValue(u"Log"_qs, u"Path"_qs, u"d"_qs);
            profile.SaveValue(u"DB"_qs, u"Path"_qs, u"見積"_qs);
            QCOMPARE(profile.GetValue(u"DB"_qs, u"Path"_qs), u"見積"_qs);
            profile.DeleteSection(u"DB"_qs);
        }
    }
};

HALVANE_TEST(clsProfileTest)
#include "clsProfileTest.moc"
