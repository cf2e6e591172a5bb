#include "base/Csv.h"

#include "base/AppError.h"
#include "base/Numbers.h"
#include "base/Text.h"

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

QString harmless(const QString& field) {
    static const QString signs = u"=+-@＝＋－＠"_qs;
    if (field.isEmpty() || !signs.contains(field.front()) || isPlainNumber(field)) return field;
    return u'\'' + field;
}

Writer::Writer(const QString& path, Encoding encoding) : m_file(path), m_encoding(encoding) {
    if (encoding == Encoding::Utf8) m_file.write("\xEF\xBB\xBF");
}

void Writer::line(const QStringList& fields) {
    QStringList safe;
    for (const QString& field : fields) safe << harmless(field);
    const QString text = quotedLine(safe) + u"\r\n"_qs;
    if (m_encoding == Encoding::Cp932)
        if (const QStringList missing = Text::missingInCp932(text); !missing.isEmpty())
            throw AppError(u"Shift_JIS にない文字があります。\n%1\n%2"_qs.arg(missing.join(u'、'), text), u"Csv"_qs);
    m_file.write(m_encoding == Encoding::Utf8 ? text.toUtf8() : Text::toCp932(text));
}

void Writer::commit() { m_file.commit(); }

} // namespace Csv
