#include "base/Csv.h"

#include "base/AppError.h"
#include "base/Text.h"

#include <QRegularExpression>

#include <algorithm>

namespace Csv {

QList<QStringList> read(const QString& text) {
    QList<QStringList> lines;
    QStringList fields;
    QString field;
    bool quoted = false;
    bool started = false; // an empty line is none, but a quoted empty field is one
    const auto endLine = [&] {
        fields << field;
        if (started) lines << fields;
        started = false;
        fields.clear();
        field.clear();
    };
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        started = started || (c != u'\n' && c != u'\r');
        if (quoted) {
            if (c != u'"')
                field += c;
            else if (i + 1 < text.size() && text.at(i + 1) == u'"')
                field += text.at(i++);
            else
                quoted = false;
        } else if (c == u'"') {
            quoted = true;
        } else if (c == u',') {
            fields << field;
            field.clear();
        } else if (c == u'\n') {
            endLine();
        } else if (c != u'\r') {
            field += c;
        }
    }
    endLine();
    return lines;
}

QString quotedLine(const QStringList& fields) {
    QStringList quoted;
    for (const QString& field : fields) quoted << u'"' + QString(field).replace(u"\""_qs, u"\"\""_qs) + u'"';
    return quoted.join(u',');
}

namespace {

// Spreadsheets pass over blanks and control characters ahead of a formula.
QString withoutBlanksAhead(const QString& field) {
    const auto start = std::find_if(field.begin(), field.end(),
                                    [](QChar c) { return !c.isSpace() && c.category() != QChar::Other_Control; });
    return field.mid(start - field.begin());
}

// A sign without anything to work on, and a number or telephone number behind its sign.
bool isNoFormula(const QString& text) {
    static const QRegularExpression signsAlone(u"^[=+\\-@＝＋－＠\\s]*\\z"_qs);
    static const QRegularExpression number(u"^[+\\-＋－][(（]?[0-9０-９.][0-9０-９.()（）\\-－ ]*\\z"_qs);
    return signsAlone.match(text).hasMatch() || number.match(text).hasMatch();
}

} // namespace

QString harmless(const QString& field) {
    static const QString signs = u"=+-@＝＋－"_qs;
    const QString text = withoutBlanksAhead(field);
    if (text.isEmpty() || !signs.contains(text.front()) || isNoFormula(text)) return field;
    return u'\'' + field;
}

QString tabbedLine(const QStringList& fields) {
    static const QRegularExpression parting(u"[\\t\\r\\n\\v\\f\\x{85}\\x{2028}\\x{2029}]+"_qs);
    QStringList plain;
    for (const QString& field : fields) plain << QString(field).replace(parting, u" "_qs);
    return plain.join(u'\t');
}

Writer::Writer(const QString& path, Encoding encoding, QChar separator)
    : m_file(path), m_encoding(encoding), m_separator(separator) {
    if (encoding == Encoding::Utf8) m_file.write("\xEF\xBB\xBF");
}

void Writer::line(const QStringList& fields) {
    QStringList safe;
    for (const QString& field : fields) safe << harmless(field);
    const QString text = (m_separator == u'\t' ? tabbedLine(safe) : quotedLine(safe)) + u"\r\n"_qs;
    if (m_encoding == Encoding::Cp932)
        if (const QStringList missing = Text::missingInCp932(text); !missing.isEmpty())
            throw AppError(u"Shift_JIS にない文字があります。\n"_qs + missing.join(u'、'), u"Csv"_qs);
    m_file.write(m_encoding == Encoding::Utf8 ? text.toUtf8() : Text::toCp932(text));
}

void Writer::commit() { m_file.commit(); }

} // namespace Csv
