#include "HalvaneTest.h"
#include "support/ProgramFolder.h"

#include "base/Arrangement.h"

#include <QFileInfo>
#include <QJsonArray>

class ArrangementTest : public QObject {
    Q_OBJECT

    std::unique_ptr<ProgramFolder> m_folder;

    QString file() const { return m_folder->path(u"kept/arrangement.json"_qs); }

    void writeFile(const QByteArray& bytes) {
        QDir().mkpath(m_folder->path(u"kept"_qs));
        m_folder->write(u"kept/arrangement.json"_qs, bytes);
    }

private slots:
    void init() {
        m_folder = std::make_unique<ProgramFolder>();
        Arrangement::keepIn(file());
    }
    void cleanup() { Arrangement::keepIn({}); }

    void whatWasKeptIsThereInTheNextRun() {
        Arrangement::keep(u"frmA"_qs, {{u"width"_qs, 800}});
        Arrangement::keep(u"frmB"_qs, {{u"name"_qs, u"受注先"_qs}});
        Arrangement::keepIn(file());
        QCOMPARE(Arrangement::of(u"frmA"_qs).value(u"width"_qs).toInt(), 800);
        QCOMPARE(Arrangement::of(u"frmB"_qs).value(u"name"_qs).toString(), u"受注先"_qs);
        QVERIFY(Arrangement::of(u"frmC"_qs).isEmpty());
    }

    void theFileIsForItsOwnerAlone() {
        Arrangement::keep(u"frmA"_qs, {{u"width"_qs, 800}});
        const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
        QVERIFY(QFileInfo::exists(file()));
        QCOMPARE(QFileInfo(file()).permissions() & others, QFile::Permissions());
    }

    void withoutAFileNothingIsKept() {
        Arrangement::keepIn({});
        Arrangement::keep(u"frmA"_qs, {{u"width"_qs, 800}});
        Arrangement::keepForSession(u"frmA"_qs, {{u"name"_qs, u"青"_qs}});
        QVERIFY(Arrangement::of(u"frmA"_qs).isEmpty());
        QVERIFY(Arrangement::ofSession(u"frmA"_qs).isEmpty());
    }

    void aDamagedFileGivesNothingAndIsWrittenAnew_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("cut off") << QByteArray(R"({"frmA":{"width":80)");
        QTest::newRow("no object") << QByteArray(R"([1,2,3])");
        QTest::newRow("another type") << QByteArray(R"({"frmA":"wide"})");
        QTest::newRow("no text at all") << QByteArray(4096, '\xff');
        QTest::newRow("NUL") << QByteArray(100, '\0');
        QTest::newRow("endless") << QByteArray(3 << 20, '[');
    }
    void aDamagedFileGivesNothingAndIsWrittenAnew() {
        QFETCH(QByteArray, bytes);
        writeFile(bytes);
        QVERIFY(Arrangement::of(u"frmA"_qs).isEmpty());
        Arrangement::keep(u"frmA"_qs, {{u"width"_qs, 700}});
        QCOMPARE(Arrangement::of(u"frmA"_qs).value(u"width"_qs).toInt(), 700);
    }

    void aPlaceThatTakesNoFileStopsNobody() {
        m_folder->write(u"stone"_qs, "a file where the folder should be");
        Arrangement::keepIn(m_folder->path(u"stone/arrangement.json"_qs));
        Arrangement::keep(u"frmA"_qs, {{u"width"_qs, 700}});
        QVERIFY(Arrangement::of(u"frmA"_qs).isEmpty());
    }

    void aSessionEnds() {
        Arrangement::keepForSession(u"frmA"_qs, {{u"txtName1"_qs, u"青"_qs}});
        QCOMPARE(Arrangement::ofSession(u"frmA"_qs).value(u"txtName1"_qs).toString(), u"青"_qs);
        QVERIFY(!QFileInfo::exists(file()));
        Arrangement::beginSession();
        QVERIFY(Arrangement::ofSession(u"frmA"_qs).isEmpty());
    }

    void eachOfficeOfAMachineHasItsOwnFile() {
        const QString first = Arrangement::machineFile(u"one"_qs), second = Arrangement::machineFile(u"two"_qs);
        QVERIFY(first != second);
        QCOMPARE(Arrangement::machineFile(u"one"_qs), first);
        const ProgramFolder another;
        QVERIFY(Arrangement::machineFile(u"one"_qs) != first);
    }
};

HALVANE_TEST(ArrangementTest)
#include "ArrangementTest.moc"
