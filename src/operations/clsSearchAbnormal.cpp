#include "operations/clsSearchAbnormal.h"

#include "base/AppError.h"
#include "base/Dates.h"
#include "base/Money.h"
#include "base/Numbers.h"
#include "base/Seams.h"
#include "base/Text.h"
#include "base/WholeFile.h"
#include "base/basMessage.h"
#include "base/clsProfile.h"
#include "db/Connection.h"
#include "db/SqlText.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <cerrno>
#include <tuple>

namespace {

constexpr int sliceSize = 20'000; // estimates
constexpr int ruleLength = 72;
constexpr int yearWidth = 4;
constexpr int amountWidth = 10;
constexpr int numberWidth = 14; // columns of a terminal, as the next ones
constexpr int nameWidth = 32;
constexpr int dateWidth = 18;

const QString statement =
    u"SELECT [顧客見積情報].[見積番号], [顧客情報].[顧客番号], [顧客情報].[名前1], [顧客情報].[名前2],"
    u" [顧客見積情報].[登録日], [顧客見積情報].[合計], SUM([顧客見積基本製作要素].[価格]) AS 基本製作要素価格,"
    u" SUM([顧客見積完成要素].[価格]) AS 完成要素価格, [顧客見積情報].[価格設定年度]"
    u" FROM (([顧客情報] INNER JOIN [顧客見積情報] ON [顧客情報].[顧客枝番] = [顧客見積情報].[顧客枝番]"
    u" AND [顧客情報].[顧客ID] = [顧客見積情報].[顧客ID])"
    u" LEFT JOIN [顧客見積基本製作要素] ON [顧客見積情報].[見積ID] = [顧客見積基本製作要素].[見積ID])"
    u" LEFT JOIN [顧客見積完成要素] ON [顧客見積情報].[見積ID] = [顧客見積完成要素].[見積ID]"
    u" WHERE %1"
    u" GROUP BY [顧客見積情報].[見積番号], [顧客情報].[顧客番号], [顧客情報].[名前1], [顧客情報].[名前2],"
    u" [顧客見積情報].[登録日], [顧客見積情報].[合計], [顧客見積情報].[価格設定年度]"
    u" HAVING %2"_qs;

const QString kanseiLost =
    u"SUM([顧客見積基本製作要素].[価格]) IS NOT NULL AND SUM([顧客見積完成要素].[価格]) IS NULL"_qs;
const QString kihonLost =
    u"SUM([顧客見積基本製作要素].[価格]) IS NULL AND SUM([顧客見積完成要素].[価格]) IS NOT NULL"_qs;
const QString bothLost = u"SUM([顧客見積基本製作要素].[価格]) IS NULL AND SUM([顧客見積完成要素].[価格]) IS NULL"_qs;

const QString number = u"[顧客見積情報].[見積番号]"_qs;

QString padded(const QString& text, int width) {
    return text + QString(qMax(1, width - Text::cp932Length(text)), u' ');
}

// A text longer than the field keeps its end.
QString rightAligned(const QString& text, int width) { return text.rightJustified(width, u' ').right(width); }

QString amountField(const Money& amount) {
    return u"    "_qs + rightAligned(formatThousands(amount.toText()) + u'円', amountWidth);
}

Money amountOf(const QString& text) { return text.isEmpty() ? Money() : Money::parse(text); }

QString heading() {
    const auto amount = [](const QString& word) {
        return QString(qMax(1, 4 + amountWidth - Text::cp932Length(word)), u' ') + word;
    };
    return u"価格年度  "_qs + padded(u"見積番号"_qs, numberWidth) + padded(u"顧客名"_qs, nameWidth) +
           padded(u"登録日"_qs, dateWidth) + amount(u"①顧客見積"_qs) + amount(u"②基本要素"_qs) +
           amount(u"③完成要素"_qs) + amount(u"差額(①－②-③)"_qs);
}

} // namespace

struct clsSearchAbnormal::Finding {
    QString year, number, line;
    QDateTime registered;

    bool operator<(const Finding& other) const {
        return std::tie(year, registered, number) < std::tie(other.year, other.registered, other.number);
    }
};

clsSearchAbnormal::clsSearchAbnormal() {
    const QString folder = clsProfile().GetPath(u"Log"_qs, u"Path"_qs);
    if (!folder.isEmpty()) QDir().mkpath(folder);
    m_path = QDir(folder).filePath(u"見積明細チェック"_qs + formatDate(currentDateTime(), u"yyyymmdd-hh-nn"_qs) +
                                   u".txt"_qs);
    QFile::remove(m_path);
}

clsSearchAbnormal::~clsSearchAbnormal() {
    if (!m_complete && !m_stopped) return;
    const QString end = m_stopped ? u"見積金額チェックを中止しました。\n%1\nに途中までの結果が出力されました。"_qs
                                  : u"見積金額チェックが完了しました。\n%1に結果が出力されました。"_qs;
    ShowMessage(Message::Warning, end.arg(QDir::toNativeSeparators(m_path)));
}

QStringList clsSearchAbnormal::wholeStatements() {
    QStringList statements;
    for (const QString& having : {kanseiLost, kihonLost, bothLost})
        statements
            << statement.arg(u"1 = 1"_qs, having) +
                   u" ORDER BY [顧客見積情報].[価格設定年度], [顧客見積情報].[登録日], [顧客見積情報].[見積番号]"_qs;
    return statements;
}

bool clsSearchAbnormal::WriteKanseiLost() {
    return writePass(kanseiLost, u"【完成要素が消えている可能性のある顧客見積】"_qs);
}

bool clsSearchAbnormal::WriteKihonLost() {
    return writePass(kihonLost, u"【基本・製作要素が消えている可能性のある顧客見積】"_qs);
}

bool clsSearchAbnormal::WriteBothLost() {
    return writePass(bothLost, u"【基本・製作要素、完成要素の両方が消えている可能性のある顧客見積】"_qs);
}

// By their numbers, which have an index; estimates of one number stay together, as the statement groups them.
void clsSearchAbnormal::findSlices() {
    if (!m_slices.isEmpty()) return;
    m_slices << number + u" IS NULL"_qs;
    QString from;
    const auto close = [&](const QString& to) {
        QStringList bounds;
        if (!from.isEmpty()) bounds << number + u" > "_qs + from;
        if (!to.isEmpty()) bounds << number + u" <= "_qs + to;
        m_slices << (bounds.isEmpty() ? number + u" IS NOT NULL"_qs : bounds.join(u" AND "_qs));
        from = to;
    };
    Recordset numbers =
        m_connection->query(u"SELECT %1 FROM [顧客見積情報] WHERE %1 IS NOT NULL ORDER BY %1"_qs.arg(number));
    while (numbers.next())
        if (numbers.position() % sliceSize == 0) close(sqlText(numbers.value(0)));
    close({});
}

void clsSearchAbnormal::readSlice(const QString& slice, const QString& having, QList<Finding>& findings) {
    Recordset rows = m_connection->query(statement.arg(slice, having));
    while (rows.next()) {
        const Money total = amountOf(rows.value(5)), basic = amountOf(rows.value(6)),
                    finished = amountOf(rows.value(7));
        const Money difference = total - basic - finished;
        if (difference == Money()) continue;
        const auto registered = parseDate(rows.value(4));
        const QString date = registered ? registered->toString(u"yyyy年M月d日"_qs) : QString();
        const QString line = rightAligned(rows.value(8), yearWidth) + u"      "_qs +
                             padded(rows.value(0), numberWidth) +
                             padded(rows.value(2) + u' ' + rows.value(3), nameWidth) + padded(date, dateWidth) +
                             amountField(total) + amountField(basic) + amountField(finished) + amountField(difference);
        findings << Finding{rows.value(8), rows.value(0), line, registered.value_or(QDateTime())};
    }
}

bool clsSearchAbnormal::writePass(const QString& having, const QString& title) {
    m_complete = false;
    const QString rule(ruleLength, u'-');
    WriteLogNoDate({title, rule, heading(), rule});
    findSlices();
    QList<Finding> findings;
    for (qsizetype i = 0; i < m_slices.size(); ++i) {
        m_stopped = m_stopped || (progress && !progress(title, i, m_slices.size()));
        if (m_stopped) return false;
        readSlice(m_slices.at(i), having, findings);
    }
    std::sort(findings.begin(), findings.end());
    QStringList lines;
    for (const Finding& finding : findings) lines << finding.line;
    WriteLogNoDate(lines);
    m_complete = true;
    return true;
}

// It names persons, so that it is for the office alone.
void clsSearchAbnormal::WriteLogNoDate(const QStringList& lines) const {
    if (lines.isEmpty()) return;
    QFile file(m_path);
    const bool isNew = !file.exists();
    const QByteArray bytes = Text::toCp932(Text::withCodePoints(lines.join(u"\r\n"_qs) + u"\r\n"_qs));
    errno = 0;
    const bool open = file.open(QIODevice::WriteOnly | QIODevice::Append);
    if (isNew && open) file.setPermissions(officeFileMode);
    if (open && file.write(bytes) == bytes.size() && file.flush()) return;
    throw AppError(u"結果のファイルに書き込めません。\n%1\n%2"_qs.arg(
                       QDir::toNativeSeparators(m_path), errno ? systemFailure(errno) : file.errorString()),
                   u"clsSearchAbnormal"_qs);
}
