#include "price/PriceChanges.h"

#include "base/Money.h"
#include "base/Numbers.h"
#include "db/Connection.h"

#include <QHash>

#include <algorithm>
#include <optional>

namespace {

const QString separator(u'\x1F');

// What tells the rows of a table apart, and what they cost.
struct TableForm {
    QString table, word;
    QStringList texts, prices;
};

const QList<TableForm>& forms() {
    const QStringList tiers{u"新価格１"_qs, u"新価格２"_qs, u"新価格３"_qs};
    const QStringList single{u"新価格"_qs};
    static const QList<TableForm> list{
        {u"価格種目"_qs, u"種目"_qs, {u"種目"_qs, u"採型区分"_qs, u"名称"_qs, u"形式"_qs}, {}},
        {u"価格基本"_qs,
         u"基本価格"_qs,
         {u"種目"_qs, u"採型区分"_qs, u"名称"_qs, u"形式"_qs, u"適用"_qs, u"採型採寸区分"_qs},
         tiers},
        {u"価格加算"_qs, u"加算価格"_qs, {u"種目"_qs, u"採型区分"_qs, u"加算要素"_qs, u"交付修理区分"_qs}, single},
        {u"価格要素"_qs, u"製作要素"_qs, {u"種目"_qs, u"採型区分"_qs, u"製作要素"_qs, u"原材料"_qs}, tiers},
        {u"価格部品"_qs,
         u"完成部品"_qs,
         {u"種目"_qs, u"名称"_qs, u"形式"_qs, u"メーカ名"_qs, u"部品コード"_qs, u"使用設定"_qs},
         single}};
    return list;
}

// Numbers among the texts mean something only beside the name of their column.
bool isNumber(const QString& column) { return column == u"適用" || column == u"交付修理区分"; }

QString shown(const QString& column, const QString& value) {
    if (column == u"使用設定") return value == u"1" ? QString() : u"使用しない"_qs;
    if (column == u"採型採寸区分") return value == u"1" ? u"採型"_qs : value == u"2" ? u"採寸"_qs : QString();
    return isNumber(column) && !value.isEmpty() ? column + value : value;
}

using Tell = std::function<bool(qint64 rows)>;

// One row: the texts as one, and its prices.
struct Row {
    QString key;
    QStringList prices;
};

class Table {
public:
    explicit Table(const TableForm& form) : m_form(form) {}

    // The rows in the order of their IDs; nothing when it was given up.
    std::optional<QList<Row>> read(Connection& connection, qint64& done, const Tell& tell) const {
        QStringList names;
        for (const QString& name : m_form.texts + m_form.prices) names << u'[' + name + u']';
        Recordset records =
            connection.query(u"SELECT %1 FROM [%2] ORDER BY [ID]"_qs.arg(names.join(u", "_qs), m_form.table));
        QList<Row> rows;
        while (records.next()) {
            rows << rowOf(records);
            if (!tell(++done)) return std::nullopt;
        }
        return rows;
    }

    void compare(const QList<Row>& before, const QList<Row>& after, QList<PriceChange>& changes) const {
        QHash<QString, QList<qsizetype>> places; // of each key in the second list, the last one first
        for (qsizetype i = after.size() - 1; i >= 0; --i) places[after.at(i).key] << i;
        QList<bool> known(after.size());
        for (const Row& row : before) {
            const auto same = places.find(row.key);
            if (same == places.end() || same->isEmpty()) {
                add(changes, PriceChange::Gone, row.key, row.prices, none(row));
                continue;
            }
            const qsizetype place = same->takeLast();
            known[place] = true;
            add(changes, PriceChange::Changed, row.key, row.prices, after.at(place).prices);
        }
        for (qsizetype i = 0; i < after.size(); ++i)
            if (!known.at(i)) add(changes, PriceChange::New, after.at(i).key, none(after.at(i)), after.at(i).prices);
    }

private:
    Row rowOf(const Recordset& record) const {
        Row row;
        QStringList texts;
        for (int i = 0; i < m_form.texts.size(); ++i) texts << record.value(i);
        row.key = texts.join(separator);
        for (int i = 0; i < m_form.prices.size(); ++i)
            row.prices << record.value(static_cast<int>(m_form.texts.size()) + i);
        return row;
    }

    static QStringList none(const Row& row) { return QStringList(row.prices.size()); }

    void add(QList<PriceChange>& changes, PriceChange::Kind kind, const QString& key, const QStringList& before,
             const QStringList& after) const {
        const QString what = told(key);
        const QList<TierMove> moves = movesOf(before, after);
        for (qsizetype i = 0; i < moves.size(); ++i)
            changes << PriceChange{m_form.table, kind, what, moves.at(i).tiers, moves.at(i).move, i > 0};
        if (moves.isEmpty() && kind != PriceChange::Changed) changes << PriceChange{m_form.table, kind, what, {}, {}};
    }

    QString told(const QString& key) const {
        const QStringList texts = key.split(separator);
        QStringList parts;
        for (int i = 0; i < texts.size(); ++i) parts << shown(m_form.texts.at(i), texts.at(i));
        parts.removeAll({});
        return parts.join(u'／');
    }

    const TableForm& m_form;
};

Money moneyOf(const QString& price) { return Money::leadingNumber(price); }

bool isSame(const QString& one, const QString& other) {
    return one.isEmpty() == other.isEmpty() && moneyOf(one) == moneyOf(other);
}

bool isSame(const PriceMove& one, const PriceMove& other) {
    return isSame(one.before, other.before) && isSame(one.after, other.after);
}

const QStringList& tierNames() {
    static const QStringList names{u"大人"_qs, u"中人"_qs, u"小人"_qs};
    return names;
}

} // namespace

bool PriceMove::isMove() const { return !isSame(before, after); }

QString PriceMove::difference() const {
    return before.isEmpty() || after.isEmpty() ? QString() : (moneyOf(after) - moneyOf(before)).toText();
}

QString PriceMove::percent() const {
    const double from = moneyOf(before).toDouble();
    if (difference().isEmpty() || from == 0) return {};
    return QString::number(roundHalfEven(Val(difference()) / from * 1000) / 10, 'f', 1);
}

QList<TierMove> movesOf(const QStringList& before, const QStringList& after) {
    QList<TierMove> moves;
    if (before.size() == 1) {
        const PriceMove move{before.first(), after.first()};
        return move.isMove() ? QList<TierMove>{{{}, move}} : moves;
    }
    for (int tier = 0; tier < before.size(); ++tier) {
        const PriceMove move{before.at(tier), after.at(tier)};
        if (!move.isMove()) continue;
        const auto alike =
            std::find_if(moves.begin(), moves.end(), [&](const TierMove& other) { return isSame(other.move, move); });
        if (alike == moves.end())
            moves << TierMove{tierNames().at(tier), move};
        else
            alike->tiers += u'・' + tierNames().at(tier);
    }
    if (moves.size() == 1 && moves.first().tiers == tierNames().join(u'・')) moves.first().tiers = u"全年齢"_qs;
    return moves;
}

QString PriceChange::kindName() const { return QStringList{u"新規"_qs, u"廃止"_qs, u"変更"_qs}.at(kind); }

QList<PriceChange> priceChanges(Connection& before, Connection& after,
                                const std::function<bool(const QString& table, qint64 rows)>& tell) {
    QList<PriceChange> changes;
    for (const TableForm& form : forms()) {
        const Table table(form);
        qint64 done = 0;
        const Tell tellRow = [&](qint64 rows) { return tell(form.table, rows); };
        const auto first = table.read(before, done, tellRow);
        const auto second = first ? table.read(after, done, tellRow) : std::nullopt;
        if (!second) return {};
        table.compare(*first, *second, changes);
    }
    return changes;
}

QString priceTableWord(const QString& table) {
    for (const TableForm& form : forms())
        if (form.table == table) return form.word;
    return table;
}
