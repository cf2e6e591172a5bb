#include "reports/ReportLayoutNode.h"

#include "base/AppError.h"

#include <QJsonArray>

#include <cmath>

namespace {

// Far beyond any paper, near enough that sums of positions stay whole numbers of 32 bits.
constexpr int maxTwips = 100'000;
constexpr double maxPoints = 200;

} // namespace

ReportLayoutNode::ReportLayoutNode(QJsonValue value, QString file, QString place)
    : m_value(std::move(value)), m_file(std::move(file)), m_place(std::move(place)) {}

void ReportLayoutNode::fail(const QString& reason) const {
    const QString place = m_place.isEmpty() ? u"全体"_qs : m_place;
    throw AppError(u"帳票レイアウト %1.json の %2: %3"_qs.arg(m_file, place, reason), u"ReportLayout"_qs);
}

bool ReportLayoutNode::has(QStringView key) const { return m_value.toObject().contains(key); }

ReportLayoutNode ReportLayoutNode::operator[](QStringView key) const {
    if (!absent() && !m_value.isObject()) fail(u"{ } で囲んでください。"_qs);
    const QString place = m_place.isEmpty() ? key.toString() : m_place + u'.' + key.toString();
    return {m_value.toObject().value(key), m_file, place};
}

QList<std::pair<QString, ReportLayoutNode>> ReportLayoutNode::members() const {
    if (!absent() && !m_value.isObject()) fail(u"{ } で囲んでください。"_qs);
    QList<std::pair<QString, ReportLayoutNode>> found;
    for (const QString& key : m_value.toObject().keys()) found.append({key, (*this)[key]});
    return found;
}

QList<ReportLayoutNode> ReportLayoutNode::elements() const {
    if (!absent() && !m_value.isArray()) fail(u"[ ] で囲んでください。"_qs);
    QList<ReportLayoutNode> found;
    const QJsonArray array = m_value.toArray();
    for (const QJsonValue element : array) found.append({element, m_file, u"%1[%2]"_qs.arg(m_place).arg(found.size())});
    return found;
}

void ReportLayoutNode::allow(const QStringList& keys) const {
    for (const auto& [key, member] : members())
        if (!keys.contains(key)) member.fail(u"知らない項目です。"_qs);
}

QString ReportLayoutNode::text() const {
    if (!absent() && !m_value.isString()) fail(u"文字列にしてください。"_qs);
    return m_value.toString();
}

bool ReportLayoutNode::flag() const {
    if (!absent() && !m_value.isBool()) fail(u"true か false にしてください。"_qs);
    return m_value.toBool();
}

int ReportLayoutNode::twips() const {
    const double number = m_value.toDouble(NAN);
    if (!(std::abs(number) <= maxTwips) || number != std::trunc(number)) fail(u"整数にしてください。"_qs);
    return static_cast<int>(number);
}

int ReportLayoutNode::twips(int whenAbsent) const { return absent() ? whenAbsent : twips(); }

QList<int> ReportLayoutNode::twipsList(int count) const {
    QList<int> numbers;
    for (const ReportLayoutNode& element : elements()) numbers.append(element.twips());
    if (numbers.size() != count) fail(u"%1 個の整数にしてください。"_qs.arg(count));
    return numbers;
}

double ReportLayoutNode::points() const {
    const double number = m_value.toDouble();
    if (!(number > 0 && number <= maxPoints)) fail(u"文字の大きさをポイントで書いてください。"_qs);
    return number;
}

int ReportLayoutNode::choice(const QStringList& choices) const {
    if (absent()) return 0;
    const qsizetype place = choices.indexOf(text());
    if (place < 0) fail(u"%1 のどれかにしてください。"_qs.arg(choices.join(u"・"_qs)));
    return static_cast<int>(place);
}
