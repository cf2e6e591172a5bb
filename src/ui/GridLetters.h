#pragma once

#include <QFontMetrics>
#include <QHash>
#include <QRawFont>
#include <QString>

class QPainter;

// Paints the texts of a grid, one line each. A letter of its font is as wide anywhere as it is alone: widths are added
// up and nothing is shaped, which takes longer than the drawing. A text with a letter that the font lacks, or that
// joins another, goes the toolkit's way.
class GridLetters {
public:
    explicit GridLetters(const QFont& font);

    // Paints in the pen's colour; a text that is too long ends in "…".
    void paint(QPainter& painter, const QRect& room, Qt::Alignment alignment, const QString& text) const;

private:
    struct Letter {
        quint32 glyph = 0; // 0: needs shaping
        qreal width = 0;
    };
    // A text in letters, as far as it fits.
    struct Line {
        QList<quint32> glyphs;
        QList<QPointF> places;
        qreal width = 0;
    };

    Letter letterOf(QChar sign) const;
    bool setLine(const QString& text, qreal room, Line& line) const;
    void paintShaped(QPainter& painter, const QRect& room, Qt::Alignment alignment, const QString& text) const;
    QPointF start(const QRect& room, Qt::Alignment alignment, qreal width) const;

    QRawFont m_font;
    QFontMetricsF m_metrics;
    mutable QHash<QChar, Letter> m_known;
};
