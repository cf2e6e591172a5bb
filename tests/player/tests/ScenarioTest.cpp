#include "HalvaneTest.h"

#include "Scenario.h"
#include "StepTable.h"

class ScenarioTest : public QObject {
    Q_OBJECT

private slots:
    void wordsAreSplitAtBlanks() {
        QCOMPARE(splitWords(u"type  txtName1\t山田"_qs).value(), (QStringList{u"type"_qs, u"txtName1"_qs, u"山田"_qs}));
    }

    void quotedWordsHoldBlanksQuotesAndLineBreaks() {
        QCOMPARE(splitWords(u"a \"b c\" \"d\"\"e\" \"f\\ng\" \"\""_qs).value(),
                 (QStringList{u"a"_qs, u"b c"_qs, u"d\"e"_qs, u"f\ng"_qs, QString()}));
    }

    void quoteThatDoesNotEndIsAFault() {
        QVERIFY(!splitWords(u"type a \"b"_qs));
        const Scenario scenario = parseScenario(u"f.scn"_qs, u"start\ntype a \"b\n"_qs);
        QCOMPARE(scenario.faults.size(), 1);
        QVERIFY(scenario.faults.first().startsWith(u"f.scn:2:"_qs));
    }

    void commentsAndEmptyLinesAreNoSteps() {
        const Scenario scenario = parseScenario(u"f.scn"_qs, u"# a\n\n  start\r\n#stop\nstop"_qs);
        QCOMPARE(scenario.steps.size(), 2);
        QCOMPARE(scenario.steps.at(0).line, 3);
        QCOMPARE(scenario.steps.at(1).line, 5);
        QVERIFY(scenario.faults.isEmpty());
    }

    void unknownStepIsNamed() {
        const Scenario scenario = parseScenario(u"f.scn"_qs, u"jump cbEnd"_qs);
        QCOMPARE(scenario.faults.size(), 1);
        QVERIFY(scenario.faults.first().contains(u"jump cbEnd"_qs));
    }

    void wrongNumberOfWordsTellsTheStep() {
        const Scenario scenario = parseScenario(u"f.scn"_qs, u"press\nexpect cell flxData 1 2"_qs);
        QCOMPARE(scenario.faults.size(), 2);
        QVERIFY(scenario.faults.at(1).contains(u"expect cell GRID ROW COL TEXT"_qs));
    }

    void statementStandsAsWritten() {
        const Scenario scenario = parseScenario(u"f.scn"_qs, u"sql UPDATE [a] SET [b] = 'x  y \"z\"'"_qs);
        QVERIFY(scenario.faults.isEmpty());
        QCOMPARE(scenario.steps.first().behind(1), u"UPDATE [a] SET [b] = 'x  y \"z\"'"_qs);
    }

    void everyStepIsListed() {
        const QString list = stepList();
        for (const StepKind& kind : stepKinds()) QVERIFY(list.contains(kind.words));
        QVERIFY(list.contains(u"expect no message"_qs));
    }
};

HALVANE_TEST(ScenarioTest)
#include "ScenarioTest.moc"
