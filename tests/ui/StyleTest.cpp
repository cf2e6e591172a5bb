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
