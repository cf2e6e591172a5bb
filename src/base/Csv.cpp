#include "base/Csv.h"

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
            if (c != u'"') field += c;
            else if (i + 1 < text.size() && text.at(i + 1) == u'"') field += text.at(i++);
            else quoted = false;
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

} // namespace Csv
