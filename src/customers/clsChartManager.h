#pragma once

#include "db/TableManager.h"

// One case of a customer branch, table `顧客カルテ`. `LR` holds the shown text of the side.
struct clsChart {
    QString CustId, CustSubId;
    QString ChartNo; // running within the branch, from 1
    QString ChartCd; // the office's own chart code
    QString DiseaseNm, LR, HospDate;
    QString OrderNo, OrderNm, DoctorNo, DoctorNm;
    QString AddDate, UpdDate, UpdUserNo, Memo;
};

class clsChartManager : public TableManager<clsChart> {
public:
    clsChartManager();

    bool GetData(const QString& CustId, const QString& CustSubId, const QString& ChartNo, clsChart& chart);
    void DeleteData(const QString& CustId, const QString& CustSubId, const QString& ChartNo);
    // Inserts or updates without questions; an empty number is drawn.
    void SaveData(clsChart& chart);
    // The estimate editor's save. A new estimate takes a chart of the branch with the same contents; a stored one whose
    // chart was changed asks whether to keep the old chart. The chart's number stands in the record afterwards.
    enum class Mode { NewEstimate = 0, StoredEstimate = 1 };
    void SaveFromEstimate(clsChart& chart, Mode mode);
    // Copies all charts of a branch, with their numbers, to another; the old ones stay.
    void CopyData(const QString& OldCustId, const QString& OldCustSubId, const QString& NewCustId,
                  const QString& NewCustSubId, qint32 UpdUserNo);
    QString GetNewChartNo(const QString& CustId, const QString& CustSubId);
    bool CheckExist(const QString& CustId, const QString& CustSubId, const QString& ChartNo);
    // Whether an estimate points to the chart.
    bool IsUsed(const clsChart& chart);
    // The names in brackets of the fields that differ; empty when none does.
    static QString GetDiffText(const clsChart& chart, const clsChart& stored);
    // 顧客ID, 顧客枝番, カルテNo, カルテ番号, 病名原因, 受注先 for the selection screen.
    Recordset GetSelectList(const SqlTerm& where, const SqlTerm& sort);

private:
    bool findAlike(clsChart& chart);
};

extern clsChartManager gChartManager;
