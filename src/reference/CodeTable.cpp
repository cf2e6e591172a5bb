#include "reference/CodeTable.h"

#include "base/Text.h"

#include <algorithm>

namespace {

constexpr int seqDigits = 14;

QString following(const QString& seq) { return QString::number(seq.toLongLong() + 1).rightJustified(seqDigits, u'0'); }

// As the engines compare: without the case of Latin letters, and without blanks behind.
bool same(const QStringList& left, const QStringList& right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(), [](const QString& one, const QString& two) {
        return one.compare(two, Qt::CaseInsensitive) == 0;
    });
}

bool isBlank(const QString& text) { return text.isEmpty(); }

} // namespace

int CodeTable::flagColumn() const {
    for (int i = 0; i < m_form.columns.size(); ++i)
        if (m_form.columns.at(i).kind == CodeColumn::Flag) return i;
    return -1;
}

QStringList CodeTable::identityOf(const CodeRow& row) const {
    QStringList values;
    for (const int column : m_form.identity) values << Text::rightTrimmed(row.values.value(column));
    return values;
}

bool CodeTable::lacksIdentity(const CodeRow& row) const {
    const QStringList values = identityOf(row);
    return m_form.needsAll ? std::any_of(values.begin(), values.end(), isBlank)
                           : std::all_of(values.begin(), values.end(), isBlank);
}

QString CodeTable::doubleOf(const CodeRow& row, const QList<CodeRow>& others) const {
    const QStringList identity = identityOf(row);
    for (const CodeRow& other : others)
        if (same(identityOf(other), identity)) return u"既に同じ%1が存在しています｡"_qs.arg(m_form.identityWord);
    return {};
}

QString CodeTable::complaintOf(const CodeRow& row, const QList<CodeRow>& others) const {
    if (lacksIdentity(row)) return m_form.identityWord + u"が入力されていません。適切なデータを入力してください。"_qs;
    if (const QString complaint = doubleOf(row, others); !complaint.isEmpty()) return complaint;
    for (int i = 0; i < m_form.columns.size(); ++i) {
        const int limit = m_form.columns.at(i).limit;
        if (limit > 0 && Text::rightTrimmed(row.values.value(i)).toUcs4().size() > limit)
            return u"入力できる最大数(%1)を超えています。"_qs.arg(limit);
    }
    return {};
}

QString newestSeq(const QStringList& seqs) {
    const QString now = sortTextNow();
    const auto newest = std::max_element(seqs.begin(), seqs.end());
    return newest == seqs.end() || *newest < now ? now : following(*newest);
}

QStringList orderedSeqs(QStringList seqs) {
    std::sort(seqs.begin(), seqs.end(), std::greater<>());
    QString below = QString(seqDigits, u'0');
    for (auto seq = seqs.rbegin(); seq != seqs.rend(); ++seq) {
        if (*seq <= below) *seq = following(below);
        below = *seq;
    }
    return seqs;
}
