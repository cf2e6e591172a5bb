#include "ui/GridLetters.h"

#include <QGlyphRun>
#include <QPainter>

namespace {

constexpr QChar ellipsis = u'…';

} // namespace

GridLetters::GridLetters(const QFont& font)
    : m_font(QRawFont::fromFont(font, QFontDatabase::Japanese)), m_metrics(font) {}

GridLetters::Letter GridLetters::letterOf(QChar sign) const {
    const auto known = m_known.constFind(sign);
    if (known != m_known.constEnd()) return *known;
    Letter letter;
    if (sign.isPrint() && !sign.isMark() && !sign.isSurrogate())
        letter = {m_font.glyphIndexesForString(sign).value(0), m_metrics.horizontalAdvance(sign)};
    m_known.insert(sign, letter);
    return letter;
}

bool GridLetters::setLine(const QString& text, qreal room, Line& line) const {
    const auto add = [&line](const Letter& letter) {
        line.glyphs << letter.glyph;
        line.places << QPointF(line.width, 0);
        line.width += letter.width;
    };
    for (const QChar sign : text) {
        const Letter letter = letterOf(sign);
        if (letter.glyph == 0) return false;
        add(letter);
    }
    if (line.width <= room) return true;
    const Letter end = letterOf(ellipsis);
    while (!line.glyphs.isEmpty() && line.width + end.width > room) {
        line.width = line.places.takeLast().x();
        line.glyphs.removeLast();
    }
    add(end);
    return end.glyph != 0;
}

QPointF GridLetters::start(const QRect& room, Qt::Alignment alignment, qreal width) const {
    qreal left = room.left();
    if (alignment & Qt::AlignRight) left += room.width() - width;
    if (alignment & Qt::AlignHCenter) left += (room.width() - width) / 2;
    return QPointF(qRound(left),
                   room.top() + (room.height() - qRound(m_metrics.height())) / 2 + qRound(m_metrics.ascent()));
}

void GridLetters::paint(QPainter& painter, const QRect& room, Qt::Alignment alignment, const QString& text) const {
    Line line;
    if (!setLine(text, room.width(), line)) return paintShaped(painter, room, alignment, text);
    QGlyphRun run;
    run.setRawFont(m_font);
    run.setGlyphIndexes(line.glyphs);
    run.setPositions(line.places);
    painter.drawGlyphRun(start(room, alignment, line.width), run);
}

void GridLetters::paintShaped(QPainter& painter, const QRect& room, Qt::Alignment alignment,
                              const QString& text) const {
    const QString seen = m_metrics.elidedText(text, Qt::ElideRight, room.width());
    painter.drawText(start(room, alignment, m_metrics.horizontalAdvance(seen)), seen);
}
