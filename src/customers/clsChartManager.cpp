#include "customers/clsChartManager.h"

#include "base/Seams.h"
#include "base/basCommon.h"
#include "base/basMessage.h"

clsChartManager gChartManager;

namespace {

const QStringList keys{u"顧客ID"_qs, u"顧客枝番"_qs, u"カルテNo"_qs};
const QStringList stamps{u"登録日"_qs, u"更新日"_qs};

QString branchFilter(const QString& CustId, const QString& CustSubId) {
    return u"[顧客ID] = "_qs + sqlText(CustId) + u" AND [顧客枝番] = "_qs + sqlNumber(CustSubId);
}

QString chartFilter(const QString& CustId, const QString& CustSubId, const QString& ChartNo) {
    return branchFilter(CustId, CustSubId) + u" AND [カルテNo] = "_qs + sqlNumber(ChartNo);
}

QString dayOf(const QString& date) { return formatDate(date, u"yyyy/mm/dd"_qs); }

// Number columns read back as "" or "0" for none.
QString numberOrNone(const QString& number) { return Val(number) == 0 ? QString() : number; }

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
    return readFirst(chart, chartFilter(CustId, CustSubId, ChartNo));
}

void clsChartManager::DeleteData(const QString& CustId, const QString& CustSubId, const QString& ChartNo) {
    execute(u"DELETE FROM [顧客カルテ] WHERE "_qs + chartFilter(CustId, CustSubId, ChartNo));
}

QString clsChartManager::GetNewChartNo(const QString& CustId, const QString& CustSubId) {
    const QString last = connection().scalar(u"SELECT MAX([カルテNo]) AS [最終No] FROM [顧客カルテ]  WHERE "_qs +
                                             branchFilter(CustId, CustSubId));
    return numberText(Val(last) + 1);
}

bool clsChartManager::CheckExist(const QString& CustId, const QString& CustSubId, const QString& ChartNo) {
    return connection().scalar(u"SELECT COUNT([顧客ID]) AS RECCNT FROM [顧客カルテ] WHERE "_qs +
                               chartFilter(CustId, CustSubId, ChartNo)) != u"0";
}

void clsChartManager::SaveData(clsChart& chart) {
    if (chart.ChartNo.isEmpty()) chart.ChartNo = GetNewChartNo(chart.CustId, chart.CustSubId);
    if (CheckExist(chart.CustId, chart.CustSubId, chart.ChartNo))
        update(chart, columnsWithout(keys + stamps), keys);
    else
        insert(chart, columnsWithout(stamps));
}

void clsChartManager::CopyData(const QString& OldCustId, const QString& OldCustSubId, const QString& NewCustId,
                               const QString& NewCustSubId, qint32 UpdUserNo) {
    const QString kept =
        u"[カルテNo], [カルテ番号], [病名原因], [左右区分], [入通院開始日], [受注先No], [受注先], [主治医No], [主治医]"_qs;
    execute(u" INSERT INTO [顧客カルテ] ([顧客ID], [顧客枝番], "_qs + kept +
            u", [登録日], [更新日], [編集者No], [備考]) SELECT "_qs + sqlText(NewCustId) + u" AS 顧客ID, "_qs +
            sqlNumber(NewCustSubId) + u" AS 顧客枝番, "_qs + kept + u", NOW() AS 登録日, NOW() AS 更新日, "_qs +
            QString::number(UpdUserNo) + u" AS 編集者No, [備考] FROM [顧客カルテ] WHERE "_qs +
            branchFilter(OldCustId, OldCustSubId));
}

QString clsChartManager::GetDiffText(const clsChart& chart, const clsChart& stored) {
    QString names;
    const auto compare = [&names](const QString& typed, const QString& kept, const QString& name) {
        if (Text::rightTrimmed(typed) != Text::rightTrimmed(kept)) names += name;
    };
    compare(chart.ChartCd, stored.ChartCd, u"[カルテ番号]"_qs);
    compare(chart.DiseaseNm, stored.DiseaseNm, u"[病名原因]"_qs);
    compare(chart.LR, stored.LR, u"[左右区分]"_qs);
    compare(dayOf(chart.HospDate), dayOf(stored.HospDate), u"[入通院開始日]"_qs);
    compare(numberOrNone(chart.OrderNo), numberOrNone(stored.OrderNo), u"[受注先No]"_qs);
    compare(chart.OrderNm, stored.OrderNm, u"[受注先名]"_qs);
    compare(numberOrNone(chart.DoctorNo), numberOrNone(stored.DoctorNo), u"['主治医No]"_qs);
    compare(chart.DoctorNm, stored.DoctorNm, u"[主治医名]"_qs);
    compare(chart.Memo, stored.Memo, u"[備考]"_qs);
    return names;
}

bool clsChartManager::findAlike(clsChart& chart) {
    QString filter = branchFilter(chart.CustId, chart.CustSubId);
    const auto text = [&filter](const QString& column, const QString& value) {
        if (!Text::rightTrimmed(value).isEmpty())
            filter += u" AND ["_qs + column + u"] = "_qs + sqlText(Text::rightTrimmed(value));
    };
    const auto number = [&filter](const QString& column, const QString& value) {
        if (Val(value) != 0) filter += u" AND ["_qs + column + u"] = "_qs + sqlNumber(value);
    };
    text(u"カルテ番号"_qs, chart.ChartCd);
    text(u"病名原因"_qs, chart.DiseaseNm);
    text(u"左右区分"_qs, chart.LR);
    if (!chart.HospDate.isEmpty()) filter += u" AND [入通院開始日] = #"_qs + dayOf(chart.HospDate) + u'#';
    number(u"受注先No"_qs, chart.OrderNo);
    text(u"受注先"_qs, chart.OrderNm);
    number(u"主治医No"_qs, chart.DoctorNo);
    text(u"主治医"_qs, chart.DoctorNm);
    QList<clsChart> found;
    GetList(found, filter, u"[顧客ID],[顧客枝番],[カルテNo]"_qs);
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
            if (ShowMessage(904, question) == AnswerYes) chart.ChartNo.clear();
        }
    }
    SaveData(chart);
}

Recordset clsChartManager::GetSelectList(const QString& where, const QString& order) {
    QString sql = u"SELECT [顧客ID], [顧客枝番], [カルテNo], [カルテ番号], [病名原因], [受注先] FROM [顧客カルテ]"_qs;
    if (!where.isEmpty()) sql += u" WHERE "_qs + where;
    if (!order.isEmpty()) sql += u" ORDER BY "_qs + order;
    return connection().query(sql);
}
