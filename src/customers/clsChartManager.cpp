#include "customers/clsChartManager.h"

#include "base/Dates.h"
#include "base/Numbers.h"
#include "base/Seams.h"
#include "base/basMessage.h"

clsChartManager gChartManager;

namespace {

// What tells a case from another, under the words for the operator.
const QList<std::pair<QString clsChart::*, QString>>& contents() {
    static const QList<std::pair<QString clsChart::*, QString>> list{
        {&clsChart::ChartCd, u"[カルテ番号]"_qs}, {&clsChart::DiseaseNm, u"[病名原因]"_qs},
        {&clsChart::LR, u"[左右区分]"_qs},        {&clsChart::HospDate, u"[入通院開始日]"_qs},
        {&clsChart::OrderNo, u"[受注先No]"_qs},   {&clsChart::OrderNm, u"[受注先名]"_qs},
        {&clsChart::DoctorNo, u"['主治医No]"_qs}, {&clsChart::DoctorNm, u"[主治医名]"_qs},
        {&clsChart::Memo, u"[備考]"_qs}};
    return list;
}

// A member of a chart as two charts are compared by it. Number columns read back as "" or "0" for none.
QString comparable(const clsChart& chart, QString clsChart::*member) {
    const QString value = Text::rightTrimmed(chart.*member);
    if (member == &clsChart::HospDate) return formatDate(value, u"yyyy/mm/dd"_qs);
    const bool isNumber = member == &clsChart::OrderNo || member == &clsChart::DoctorNo;
    return isNumber && Val(value) == 0 ? QString() : value;
}

} // namespace

clsChartManager::clsChartManager()
    : TableManager(u"顧客カルテ"_qs, {{&clsChart::CustId, u"顧客ID"_qs},
                                      {&clsChart::CustSubId, u"顧客枝番"_qs},
                                      {&clsChart::ChartNo, u"カルテNo"_qs},
                                      {&clsChart::ChartCd, u"カルテ番号"_qs},
                                      {&clsChart::DiseaseNm, u"病名原因"_qs},
                                      {&clsChart::LR, u"左右区分"_qs},
                                      {&clsChart::HospDate, u"入通院開始日"_qs},
                                      {&clsChart::OrderNo, u"受注先No"_qs},
                                      {&clsChart::OrderNm, u"受注先"_qs},
                                      {&clsChart::DoctorNo, u"主治医No"_qs},
                                      {&clsChart::DoctorNm, u"主治医"_qs},
                                      {&clsChart::Memo, u"備考"_qs},
                                      {&clsChart::UpdUserNo, u"編集者No"_qs},
                                      {&clsChart::AddDate, u"登録日"_qs},
                                      {&clsChart::UpdDate, u"更新日"_qs}}) {}

bool clsChartManager::GetData(const QString& CustId, const QString& CustSubId, const QString& ChartNo,
                              clsChart& chart) {
    if (CustId.isEmpty() || CustSubId.isEmpty() || ChartNo.isEmpty()) return false;
    return get({CustId, CustSubId, ChartNo}, chart);
}

void clsChartManager::DeleteData(const QString& CustId, const QString& CustSubId, const QString& ChartNo) {
    remove({CustId, CustSubId, ChartNo});
}

QString clsChartManager::GetNewChartNo(const QString& CustId, const QString& CustSubId) {
    return nextNumber(keyed({CustId, CustSubId}));
}

bool clsChartManager::CheckExist(const QString& CustId, const QString& CustSubId, const QString& ChartNo) {
    return exists({CustId, CustSubId, ChartNo});
}

bool clsChartManager::IsUsed(const clsChart& chart) {
    const SqlTerm pointing = SqlEqual(u"顧客見積情報"_qs, key(), {chart.CustId, chart.CustSubId, chart.ChartNo});
    return scalar(SqlSelect(u"SELECT COUNT(*) FROM [顧客見積情報]"_qs, pointing)) != u"0";
}

void clsChartManager::SaveData(clsChart& chart) {
    if (chart.ChartNo.isEmpty()) chart.ChartNo = GetNewChartNo(chart.CustId, chart.CustSubId);
    save(chart);
}

void clsChartManager::CopyData(const QString& OldCustId, const QString& OldCustSubId, const QString& NewCustId,
                               const QString& NewCustSubId, qint32 UpdUserNo) {
    const QString kept =
        u"[カルテNo], [カルテ番号], [病名原因], [左右区分], [入通院開始日], [受注先No], [受注先], [主治医No], [主治医]"_qs;
    execute(u" INSERT INTO [顧客カルテ] ([顧客ID], [顧客枝番], "_qs + kept +
            u", [登録日], [更新日], [編集者No], [備考]) SELECT "_qs + sqlText(NewCustId) + u" AS 顧客ID, "_qs +
            sqlNumber(NewCustSubId) + u" AS 顧客枝番, "_qs + kept + u", NOW() AS 登録日, NOW() AS 更新日, "_qs +
            QString::number(UpdUserNo) + u" AS 編集者No, [備考] FROM [顧客カルテ] WHERE "_qs +
            keyed({OldCustId, OldCustSubId}).text());
}

QString clsChartManager::GetDiffText(const clsChart& chart, const clsChart& stored) {
    QString names;
    for (const auto& [member, name] : contents())
        if (comparable(chart, member) != comparable(stored, member)) names += name;
    return names;
}

// The note tells no case from another.
bool clsChartManager::findAlike(clsChart& chart) {
    QList<SqlTerm> terms{keyed({chart.CustId, chart.CustSubId})};
    for (const auto& [member, name] : contents())
        if (const QString value = comparable(chart, member); !value.isEmpty() && member != &clsChart::Memo)
            terms << equal(member, value);
    QList<clsChart> found;
    GetList(found, SqlAllOf(terms), byKey());
    if (found.isEmpty()) return false;
    chart.ChartNo = found.first().ChartNo;
    return true;
}

void clsChartManager::SaveFromEstimate(clsChart& chart, Mode mode) {
    if (mode == Mode::NewEstimate) {
        chart.ChartNo.clear();
        if (findAlike(chart)) return;
    } else {
        clsChart stored;
        if (!GetData(chart.CustId, chart.CustSubId, chart.ChartNo, stored)) {
            chart.ChartNo.clear();
        } else {
            const QString differences = GetDiffText(chart, stored);
            if (differences.isEmpty()) return;
            const QString question = differences + u"が変更されています。\n顧客カルテ情報を別管理しますか?"_qs;
            if (ShowMessage(Message::Question, question) == AnswerYes) chart.ChartNo.clear();
        }
    }
    SaveData(chart);
}

Recordset clsChartManager::GetSelectList(const SqlTerm& where, const SqlTerm& sort) {
    return query(
        SqlSelect(u"SELECT [顧客ID], [顧客枝番], [カルテNo], [カルテ番号], [病名原因], [受注先] FROM [顧客カルテ]"_qs,
                  where, sort));
}
