#include "HalvaneTest.h"

#include "ui/GridLetters.h"
#include "ui/Style.h"

#include <QImage>
#include <QPainter>

// What a grid paints letter by letter looks as the toolkit's own text does.
class GridLettersTest : public QObject {
    Q_OBJECT

    static constexpr QSize cell{200, 27};

    static QImage painted(const std::function<void(QPainter& painter, const QRect& room)>& paint) {
        QImage image(cell, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.setFont(Style::gridFont());
        painter.setPen(Style::ink);
        paint(painter, QRect(QPoint(4, 0), cell - QSize(8, 0)));
        return image;
    }

    static QImage byLetters(const QString& text, Qt::Alignment alignment = Qt::AlignLeft) {
        const GridLetters letters(Style::gridFont());
        return painted([&](QPainter& painter, const QRect& room) { letters.paint(painter, room, alignment, text); });
    }

    static QImage byTheToolkit(const QString& text) {
        const QFontMetrics metrics(Style::gridFont());
        return painted([&](QPainter& painter, const QRect& room) {
            const int top = room.top() + (room.height() - metrics.height()) / 2;
            painter.drawText(room.left(), top + metrics.ascent(),
                             metrics.elidedText(text, Qt::ElideRight, room.width()));
        });
    }

    static int firstInk(const QImage& image) {
        for (int x = 0; x < image.width(); ++x)
            for (int y = 0; y < image.height(); ++y)
                if (image.pixelColor(x, y) != Qt::white) return x;
        return -1;
    }

private slots:
    void initTestCase() { Style::apply(*qApp); }

    void looksLikeShapedText_data() {
        QTest::addColumn<QString>("text");
        QTest::newRow("numbers") << u"2026/11/21 1,234,567"_qs;
        QTest::newRow("names") << u"髙﨑　信二 ｽｽﾞｷ ﾊﾅｺ"_qs;
        QTest::newRow("too long") << u"(交付)左短下肢装具採型付き(交付)左半長靴靴型装具採型"_qs;
        QTest::newRow("letters that the font lacks") << u"𠮷田😀 辻\U000E0100 が"_qs;
    }
    void looksLikeShapedText() {
        QFETCH(QString, text);
        QVERIFY(firstInk(byLetters(text)) >= 0);
        QCOMPARE(byLetters(text), byTheToolkit(text));
    }

    void standsWhereItsColumnWants() {
        const int left = firstInk(byLetters(u"125,408"_qs));
        const int centre = firstInk(byLetters(u"125,408"_qs, Qt::AlignHCenter));
        const int right = firstInk(byLetters(u"125,408"_qs, Qt::AlignRight));
        QVERIFY(left < 10);
        QVERIFY(right > 120);
        QVERIFY(qAbs(centre - (left + right) / 2) <= 1);
        QCOMPARE(firstInk(byLetters({})), -1);
    }
};

HALVANE_TEST(GridLettersTest)
#include "GridLettersTest.moc"
