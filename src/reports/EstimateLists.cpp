#include "reports/ReportClasses.h"

namespace {

// What `GetCsEstimateListData` fills.
ReportRecordset listRecordset() {
    using enum ReportFieldType;
    static const QList<ReportField> fields{{u"Order"_qs, Text, 50},       {u"Addr"_qs, Text, 100},
                                           {u"CustNm"_qs, Text, 31},      {u"EstName"_qs, Text, 50},
                                           {u"ProductCd"_qs, Text, 20},   {u"EstSum"_qs, Currency},
                                           {u"Ins"_qs, Text, 50},         {u"PickPtnDate"_qs, Text, 30},
                                           {u"DelvFinDate"_qs, Text, 30}, {u"Sort"_qs, Text, 3}};
    return ReportRecordset(fields);
}

ReportSample sample() {
    const QString date = u"令和２８年１２月２８日"_qs;
    return {{},
            {{u"PickPtnDate"_qs, date},
             {u"DelvFinDate"_qs, date},
             {u"PrtDate"_qs, date},
             {u"Ins"_qs, u"社会,国民,後期,身体"_qs}}}; // as many claims as a paper shows
}

} // namespace

QList<ReportClass> estimateLists() {
    const auto title = [](const ReportRecordset&, const ReportParameters&) { return u"見積データ一覧"_qs; };
    return {{u"repCsEstList"_qs, listRecordset, ReportRowPlan::List, nullptr, printDayHeader, title, sample()}};
}
