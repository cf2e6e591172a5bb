#include "FormUnderTest.h"
#include "HalvaneTest.h"
#include "support/ProgramFolder.h"

#include "base/Arrangement.h"
#include "ui/ChoiceBox.h"
#include "ui/DateField.h"
#include "ui/SearchFields.h"
#include "ui/TextField.h"
#include "ui/basControlUtil.h"

#include <QCheckBox>
#include <QTabBar>

namespace {

class ConditionsUnderTest : public FormUnderTest {
public:
    ConditionsUnderTest() {
        setObjectName(u"frmList"_qs);
        name->setObjectName(u"txtName1"_qs);
        from->setObjectName(u"idtFrom"_qs);
        place->setObjectName(u"cboPref"_qs);
        law->setObjectName(u"cboIns"_qs);
        done->setObjectName(u"chkDone"_qs);
        kana->setObjectName(u"stKana"_qs);
        law->addEntry(allEntry);
        law->addEntry(u"労災"_qs, u"14"_qs);
        place->setEditable(true);
        place->addEntry(u"愛知県"_qs);
        for (const QString& tab : {u"全"_qs, u"あ"_qs, u"か"_qs}) kana->addTab(tab);
        SearchFields::restore(this);
    }

    QStringList shown() const {
        return {name->value(),
                from->value(),
                place->text(),
                law->text(),
                QString::number(done->isChecked()),
                QString::number(kana->currentIndex())};
    }

    void fill() {
        name->setValue(u"青木"_qs);
        from->setValue(u"2024/04/01"_qs);
        place->setText(u"愛知"_qs);
        law->setText(u"労災"_qs);
        done->setChecked(true);
        kana->setCurrentIndex(2);
    }

    TextField* name = add<TextField>();
    DateField* from = add<DateField>();
    ChoiceBox* place = add<ChoiceBox>();
    ChoiceBox* law = add<ChoiceBox>();
    QCheckBox* done = add<QCheckBox>();
    QTabBar* kana = add<QTabBar>();
};

const QStringList filled{u"青木"_qs, u"2024/04/01"_qs, u"愛知"_qs, u"労災"_qs, u"1"_qs, u"2"_qs};

} // namespace

class SearchFieldsTest : public QObject {
    Q_OBJECT

    std::unique_ptr<ProgramFolder> m_folder;

private slots:
    void init() {
        m_folder = std::make_unique<ProgramFolder>();
        Arrangement::keepIn(m_folder->path(u"arrangement.json"_qs));
    }
    void cleanup() { Arrangement::keepIn({}); }

    void conditionsComeBackWithinASessionAlone() {
        const auto round = [](bool fills) {
            QWidget window;
            window.setObjectName(u"frmList"_qs);
            auto* area = new ConditionsUnderTest;
            area->setParent(&window);
            area->setObjectName(u"frExtract"_qs);
            SearchFields::restore(area);
            const QStringList shown = area->shown();
            if (fills) area->fill();
            SearchFields::keep(&window);
            return shown;
        };
        QVERIFY(round(true) != filled);
        QCOMPARE(round(false), filled);
        Arrangement::beginSession();
        QVERIFY(round(false) != filled);
    }

    void clearAsksForNothing() {
        ConditionsUnderTest form;
        form.fill();
        QCOMPARE(form.shown(), filled);
        SearchFields::clear(&form);
        QCOMPARE(form.shown(), (QStringList{{}, {}, {}, allEntry, u"0"_qs, u"0"_qs}));
    }

    void aControlMayBeAnAreaOfItsOwn() {
        ConditionsUnderTest form;
        form.fill();
        SearchFields::clear(form.kana);
        SearchFields::clear(form.name);
        QCOMPARE(form.kana->currentIndex(), 0);
        QCOMPARE(form.name->value(), QString());
        QCOMPARE(form.from->value(), u"2024/04/01"_qs);
    }
};

HALVANE_TEST(SearchFieldsTest)
#include "SearchFieldsTest.moc"
