#include "Scenario.h"

#include "StepTable.h"

#include <QFile>

namespace {

// Takes words from the front of a line, one at a time.
class WordReader {
public:
    explicit WordReader(const QString& line) : m_line(line) { skipBlanks(); }

    bool atEnd() const { return m_at >= m_line.size(); }
    bool broken() const { return m_broken; }
    QString rest() const { return m_line.mid(m_at).trimmed(); }

    QString next() {
        const QString word = m_line.at(m_at) == u'"' ? quoted() : plain();
        skipBlanks();
        return word;
    }

private:
    void skipBlanks() {
        while (!atEnd() && (m_line.at(m_at) == u' ' || m_line.at(m_at) == u'\t')) ++m_at;
    }

    QString plain() {
        const qsizetype start = m_at;
        while (!atEnd() && m_line.at(m_at) != u' ' && m_line.at(m_at) != u'\t') ++m_at;
        return m_line.mid(start, m_at - start);
    }

    QString quoted() {
        QString word;
        for (++m_at; !atEnd(); ++m_at) {
            const QStringView rest = QStringView(m_line).mid(m_at);
            if (rest.startsWith(u"\"\"")) {
                word += u'"';
                ++m_at;
            } else if (rest.startsWith(u"\\n")) {
                word += u'\n';
                ++m_at;
            } else if (rest.startsWith(u'"')) {
                ++m_at;
                return word;
            } else {
                word += m_line.at(m_at);
            }
        }
        m_broken = true;
        return word;
    }

    QString m_line;
    qsizetype m_at = 0;
    bool m_broken = false;
};

} // namespace

QString Step::behind(int count) const {
    WordReader reader(text);
    while (count-- > 0 && !reader.atEnd()) reader.next();
    return reader.rest();
}

std::optional<QStringList> splitWords(const QString& line) {
    QStringList words;
    WordReader reader(line);
    while (!reader.atEnd()) words << reader.next();
    return reader.broken() ? std::nullopt : std::optional(words);
}

Scenario parseScenario(const QString& file, const QString& text) {
    Scenario scenario;
    scenario.file = file;
    int number = 0;
    for (const QString& raw : text.split(u'\n')) {
        ++number;
        const QString line = raw.trimmed();
        if (line.isEmpty() || line.startsWith(u'#')) continue;
        const auto words = splitWords(line);
        const Step step{number, line, words.value_or(QStringList())};
        const QString fault = words ? faultOf(step) : u"a double quote does not end"_qs;
        if (!fault.isEmpty()) scenario.faults << u"%1:%2: %3\n  %4"_qs.arg(file).arg(number).arg(line, fault);
        scenario.steps << step;
    }
    return scenario;
}

Scenario readScenario(const QString& file) {
    QFile source(file);
    if (source.open(QIODevice::ReadOnly)) return parseScenario(file, QString::fromUtf8(source.readAll()));
    Scenario scenario;
    scenario.file = file;
    scenario.faults << u"%1: the file cannot be read"_qs.arg(file);
    return scenario;
}
