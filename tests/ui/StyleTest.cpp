#include "HalvaneTest.h"

#include "ui/Style.h"

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QToolTip>

class StyleTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { Style::apply(*qApp); }

    void theColoursAreTheSameOnADarkDesktop() {
        const QPalette light = QApplication::palette(), tip = QToolTip::palette(),
                       menu = QApplication::palette("QMenu");
        QPalette dark(Qt::white, Qt::black, Qt::black, Qt::black, Qt::black, Qt::white, Qt::white, Qt::black,
                      Qt::black);
        QApplication::setPalette(dark);
        QApplication::setPalette(dark, "QMenu");
        QToolTip::setPalette(dark);
        Style::apply(*qApp);
        for (const auto& [found, expected] : {std::pair{QApplication::palette(), light},
                                              {QToolTip::palette(), tip},
                                              {QApplication::palette("QMenu"), menu}})
            for (int group = 0; group < QPalette::NColorGroups; ++group)
                for (int role = 0; role < QPalette::NColorRoles; ++role) {
                    const auto in = [&](const QPalette& palette) {
                        return palette.color(static_cast<QPalette::ColorGroup>(group),
                                             static_cast<QPalette::ColorRole>(role));
                    };
                    QVERIFY2(in(found) == in(expected), qPrintable(u"%1/%2"_qs.arg(group).arg(role)));
                }
    }

    void everyTextStandsOutFromItsGround() {
        const QPalette palette = QApplication::palette();
        for (const auto& [text, ground] : {std::pair{QPalette::WindowText, QPalette::Window},
                                           {QPalette::WindowText, QPalette::Light},
                                           {QPalette::Text, QPalette::Base},
                                           {QPalette::ButtonText, QPalette::Button},
                                           {QPalette::ToolTipText, QPalette::ToolTipBase},
                                           {QPalette::HighlightedText, QPalette::Highlight}}) {
            const int apart = qAbs(qGray(palette.color(text).rgb()) - qGray(palette.color(ground).rgb()));
            QVERIFY2(apart > 120, qPrintable(u"%1 on %2: %3"_qs.arg(text).arg(ground).arg(apart)));
        }
    }

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
