#include "base/CellBlock.h"

namespace {

const QChar quote = u'"';

QString written(const QString& cell) {
    const bool plain = !cell.contains(u'\t') && !cell.contains(u'\n') && !cell.contains(quote);
    return plain ? cell : quote + QString(cell).replace(quote, QStringLiteral("\"\"")) + quote;
}

bool isQuoted(const QString& text, qsizetype at) {
    if (text.at(at) != quote) return false;
    for (qsizetype end = text.indexOf(quote, at + 1); end >= 0; end = text.indexOf(quote, end + 2)) {
        const QChar behind = end + 1 < text.size() ? text.at(end + 1) : u'\n';
        if (behind != quote) return behind == u'\t' || behind == u'\n';
    }
    return false; // a mark that none closes is a sign as any other
}

// Takes a cell in quotation marks and goes behind it.
QString readQuoted(const QString& text, qsizetype& at) {
    QString cell;
    for (++at; at < text.size(); ++at) {
        if (text.at(at) == quote && text.mid(at + 1, 1) != quote) break;
        if (text.at(at) == quote) ++at;
        cell += text.at(at);
    }
    ++at;
    return cell;
}

QString readPlain(const QString& text, qsizetype& at) {
    const qsizetype start = at;
    while (at < text.size() && text.at(at) != u'\t' && text.at(at) != u'\n') ++at;
    return text.mid(start, at - start);
}

} // namespace

QString CellBlock::write(const QList<QStringList>& rows) {
    QString text;
    for (const QStringList& row : rows) {
        QStringList cells;
        for (const QString& cell : row) cells << written(cell);
        text += cells.join(u'\t') + u'\n';
    }
    return text;
}

QList<QStringList> CellBlock::read(const QString& clipboard) {
    const QString text = QString(clipboard).replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
    QList<QStringList> rows;
    QStringList row;
    for (qsizetype at = 0; at < text.size(); ++at) {
        row << (isQuoted(text, at) ? readQuoted(text, at) : readPlain(text, at));
        if (at < text.size() && text.at(at) == u'\t') {
            if (at + 1 == text.size()) row << QString();
            continue;
        }
        rows << std::exchange(row, {});
    }
    if (!row.isEmpty()) rows << row;
    return rows;
}
