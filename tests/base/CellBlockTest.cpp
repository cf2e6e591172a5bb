#include "HalvaneTest.h"

#include "base/CellBlock.h"

using Block = QList<QStringList>;

class CellBlockTest : public QObject {
    Q_OBJECT

private slots:
    void linesAreRowsAndTabsCells() {
        QCOMPARE(CellBlock::read(u"足継手\t遊動\n膝継手\t固定\n"_qs),
                 (Block{{u"足継手"_qs, u"遊動"_qs}, {u"膝継手"_qs, u"固定"_qs}}));
        QCOMPARE(CellBlock::write({{u"足継手"_qs, u"2"_qs}, {u"膝継手"_qs, {}}}), u"足継手\t2\n膝継手\t\n"_qs);
    }

    void theBreakBehindTheLastRowMayLack() {
        QCOMPARE(CellBlock::read(u"1\t2"_qs), (Block{{u"1"_qs, u"2"_qs}}));
        QCOMPARE(CellBlock::read(u"1"_qs), Block{{u"1"_qs}});
    }

    void breaksOfEverySystemAreTaken() {
        QCOMPARE(CellBlock::read(u"1\r\n2\r\n"_qs), (Block{{u"1"_qs}, {u"2"_qs}}));
        QCOMPARE(CellBlock::read(u"1\r2\r"_qs), (Block{{u"1"_qs}, {u"2"_qs}}));
    }

    void emptyCellsKeepTheirPlaces() {
        QCOMPARE(CellBlock::read(u"\t\t3\n\n1\t\n"_qs), (Block{{{}, {}, u"3"_qs}, {{}}, {u"1"_qs, {}}}));
        QCOMPARE(CellBlock::read(u"1\t"_qs), (Block{{u"1"_qs, {}}}));
        QCOMPARE(CellBlock::read({}), Block());
    }

    void quotedCellsHoldBreaksTabsAndMarks() {
        const Block rows{{u"一行\n二行"_qs, u"タブ\t入り"_qs, u"\"印\""_qs}};
        QCOMPARE(CellBlock::read(CellBlock::write(rows)), rows);
        QCOMPARE(CellBlock::read(u"\"12\"\"\"\t3\n"_qs), (Block{{u"12\""_qs, u"3"_qs}}));
    }

    void aMarkWithoutItsEndIsASign() {
        QCOMPARE(CellBlock::read(u"\"太\t5\n"_qs), (Block{{u"\"太"_qs, u"5"_qs}}));
        QCOMPARE(CellBlock::read(u"\"a\"b\t5"_qs), (Block{{u"\"a\"b"_qs, u"5"_qs}}));
    }

    // Whatever is written is read as it was.
    void nothingIsLostOnTheWay() {
        const QStringList signs{u"\""_qs, u"\t"_qs, u"\n"_qs, u"字"_qs, {}};
        for (const QString& first : signs)
            for (const QString& second : signs)
                for (const QString& third : signs) {
                    const Block rows{{first + second, third}, {third, second}};
                    QCOMPARE(CellBlock::read(CellBlock::write(rows)), rows);
                }
    }
};

HALVANE_TEST(CellBlockTest)
#include "CellBlockTest.moc"
