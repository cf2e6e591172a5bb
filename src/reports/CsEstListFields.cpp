#include "reports/CsEstListFields.h"

ReportRecordset csEstListRecordset() {
    using enum ReportFieldType;
    ReportRecordset records;
    records.AppendField(u"Order"_qs, Text, 50);
    records.AppendField(u"Addr"_qs, Text, 100);
    records.AppendField(u"CustNm"_qs, Text, 31);
    records.AppendField(u"EstName"_qs, Text, 50);
    records.AppendField(u"ProductCd"_qs, Text, 20);
    records.AppendField(u"EstSum"_qs, Currency);
    records.AppendField(u"Ins"_qs, Text, 50);
    records.AppendField(u"PickPtnDate"_qs, Text, 30);
    records.AppendField(u"DelvFinDate"_qs, Text, 30);
    records.AppendField(u"Sort"_qs, Text, 3);
    return records;
}
