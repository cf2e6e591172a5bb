#include "HalvaneTest.h"
#include "support/TestDatabase.h"

#include "base/Text.h"
#include "composition/ItemHelp.h"
#include "composition/ItemRules.h"

#include <QDir>
#include <QFile>

// Where picture and text of an item are looked for, on the price list of the sample office.
class ItemHelpTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<TestDatabase> m_database;

    static Cells item(const QString& id, const QStringList& texts) {
        Cells cells(ItemRules::Columns);
        cells[ItemRules::RowId] = id;
        for (int i = 0; i < texts.size(); ++i) cells[ItemRules::Item + i] = texts.at(i);
        return cells;
    }

    static Cells brace() { return item({}, {u"下肢装具"_qs, u"E-4"_qs, u"短下肢装具"_qs, u"両側支柱"_qs}); }

    QString write(const QString& name, const QByteArray& bytes) {
        const QString path = m_database->folder() + u"/help/"_qs + name;
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) qFatal("file not written");
        return path;
    }

private slots:
    void init() {
        m_database = std::make_unique<TestDatabase>(TestDatabase::Contents::Sample);
        m_database->prepareManagers();
        m_database->writeProfile(u"[Image]\r\nPath=help\r\nType=png\r\n[Text]\r\nPath=help/\r\nType=.txt\r\n"_qs);
        QVERIFY(QDir().mkpath(m_database->folder() + u"/help"_qs));
    }
    void cleanup() { m_database.reset(); }

    void closestNameStandsFirst() {
        QCOMPARE(ItemHelp::fileNames(brace()),
                 QStringList({u"52"_qs, u"下肢装具_E-4_短下肢装具_両側支柱"_qs, u"下肢装具_E-4_短下肢装具"_qs,
                              u"下肢装具_E-4"_qs, u"下肢装具"_qs}));
        QCOMPARE(ItemHelp::fileNames(item(u"9"_qs, {u"靴型装具"_qs})), QStringList({u"9"_qs, u"靴型装具"_qs}));
        QCOMPARE(ItemHelp::fileNames(item({}, {})), QStringList());
    }

    void textsThatNoFileNameHoldsStandInFullWidth() {
        QCOMPARE(ItemHelp::fileNames(item(u"../a"_qs, {u"Ａ/B\\:C*"_qs})),
                 QStringList({u"..／a"_qs, u"Ａ／B＼：C＊"_qs}));
    }

    void fileOfThePriceRowWinsOverThatOfItsKind() {
        const QString ofKind = write(u"下肢装具.png"_qs, "x");
        QCOMPARE(ItemHelp::pictureFile(brace()), ofKind);
        const QString ofRow = write(u"52.png"_qs, "x");
        QCOMPARE(ItemHelp::pictureFile(brace()), ofRow);
        QCOMPARE(ItemHelp::pictureFile(item({}, {u"靴型装具"_qs})), QString());
    }

    void textIsReadInEitherEncoding() {
        write(u"下肢装具.txt"_qs, u"支柱は左右同じ高さで。\r\n\n"_qs.toUtf8());
        QCOMPARE(ItemHelp::text(brace()), u"支柱は左右同じ高さで。"_qs);
        write(u"下肢装具.txt"_qs, Text::toCp932(u"継手は①の向き。"_qs));
        QCOMPARE(ItemHelp::text(brace()), u"継手は①の向き。"_qs);
    }

    void whatIsNoExplanationIsLeftAlone() {
        write(u"下肢装具.txt"_qs, QByteArray(1'000'000, 'x'));
        QCOMPARE(ItemHelp::text(brace()), QString());
        QVERIFY(QFile::remove(m_database->folder() + u"/help/下肢装具.txt"_qs));
        QVERIFY(QDir().mkpath(m_database->folder() + u"/help/下肢装具.txt"_qs));
        QCOMPARE(ItemHelp::text(brace()), QString());
    }

    void withoutAFolderThereIsNothing() {
        m_database->writeProfile();
        write(u"下肢装具.png"_qs, "x");
        QCOMPARE(ItemHelp::pictureFile(brace()), QString());
        QCOMPARE(ItemHelp::text(brace()), QString());
    }
};

HALVANE_TEST(ItemHelpTest)
#include "ItemHelpTest.moc"
