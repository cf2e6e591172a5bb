#include "reports/JsonKeys.h"

#include <QList>
#include <QSet>

namespace {

// The place behind the closing quote of the text that begins at `start`.
qsizetype endOfText(const QByteArray& json, qsizetype start) {
    qsizetype at = start + 1;
    while (at < json.size() && json.at(at) != '"') at += json.at(at) == '\\' ? 2 : 1;
    return std::min(at + 1, json.size());
}

bool isKey(const QByteArray& json, qsizetype end) {
    while (end < json.size() && QByteArrayView(" \t\r\n").contains(json.at(end))) ++end;
    return end < json.size() && json.at(end) == ':';
}

} // namespace

std::optional<qsizetype> repeatedJsonKey(const QByteArray& json) {
    QList<QSet<QByteArray>> objects;
    for (qsizetype at = 0; at < json.size(); ++at) {
        const char sign = json.at(at);
        if (sign == '{') objects.append(QSet<QByteArray>());
        if (sign == '}' && !objects.isEmpty()) objects.removeLast();
        if (sign != '"') continue;
        const qsizetype end = endOfText(json, at);
        if (isKey(json, end) && !objects.isEmpty()) {
            const QByteArray key = json.mid(at, end - at);
            if (objects.last().contains(key)) return at;
            objects.last().insert(key);
        }
        at = end - 1;
    }
    return std::nullopt;
}
