#include "HalvaneTest.h"

#include "ui/Style.h"

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>

class StyleTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { Style::apply(*qApp); }

    // Numbers stand under each other, and a column told in half-width characters holds that many.
    void aGridLetterIsHalfAKanjiWide() {
        const QFontMetrics letters(Style::gridFont());
        for (const QChar sign : u"0189,/-WiAｱ"_qs)
            QCOMPARE(2 * letters.horizontalAdvance(sign), letters.horizontalAdvance(u'国') + 1);
        QVERIFY(10 * letters.horizontalAdvance(u'0') <= Style::charactersWide(10));
    }

    void buttonsAreOneLineHigh() {
        QDialog form;
        auto* button = new QPushButton(u"反映(&U)"_qs, &form);
        auto* field = new QLineEdit(&form);
        Style::arrange(&form);
        form.show();
        const int line = button->fontMetrics().height();
        QVERIFY2(button->sizeHint().height() < 2 * line, qPrintable(QString::number(button->sizeHint().height())));
        QVERIFY2(field->sizeHint().height() < 2 * line, qPrintable(QString::number(field->sizeHint().height())));
    }
};

HALVANE_TEST(StyleTest)
#include "StyleTest.moc"
