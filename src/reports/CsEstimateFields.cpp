#include "reports/CsEstimateFields.h"

namespace {

using enum ReportFieldType;

const QList<ReportField>& sharedFields() {
    static const QList<ReportField> fields{
        {u"AskNo"_qs, Integer},       {u"Copy"_qs, Integer},       {u"EstNo"_qs, Text, 12},
        {u"EstNoExt"_qs, Text, 11},   {u"PrtDate"_qs, Text, 30},   {u"PrtPrice"_qs, Currency},
        {u"ClaimNm"_qs, Text, 40},    {u"EstName"_qs, Text, 50},   {u"CustNm"_qs, Text, 31},
        {u"CustNo"_qs, Text, 10},     {u"Zip"_qs, Text, 15},       {u"Pref"_qs, Text, 8},
        {u"City"_qs, Text, 12},       {u"Addr1"_qs, Text, 40},     {u"Addr2"_qs, Text, 40},
        {u"Tel"_qs, Text, 30},        {u"Sex"_qs, Text, 10},       {u"Birthday"_qs, Text, 30},
        {u"FamilyType"_qs, Text, 10}, {u"Insured"_qs, Text, 30},   {u"Total"_qs, Currency},
        {u"TaxRate"_qs, Float},       {u"Tax"_qs, Float},          {u"EstSum"_qs, Currency},
        {u"Elmt"_qs, Text, 20},       {u"Item"_qs, Text, 18},      {u"PickKbn"_qs, Text, 12},
        {u"Name"_qs, Text, 20},       {u"PickStyle"_qs, Text, 4},  {u"Materials"_qs, Text, 50},
        {u"PartsForm"_qs, Text, 34},  {u"MakerNm"_qs, Text, 16},   {u"PartsCd"_qs, Text, 16},
        {u"SumTitle"_qs, Text, 10},   {u"SumCal"_qs, Text, 30},    {u"Suryo"_qs, Currency},
        {u"Unit"_qs, Currency},       {u"Price"_qs, Currency},     {u"Ins1"_qs, Text, 10},
        {u"Ins2"_qs, Text, 10},       {u"Ins3"_qs, Text, 10},      {u"Ins4"_qs, Text, 10},
        {u"AskPrice1"_qs, Currency},  {u"AskPrice2"_qs, Currency}, {u"AskPrice3"_qs, Currency},
        {u"AskPrice4"_qs, Currency},  {u"Charge1Nm"_qs, Text, 40},
    };
    return fields;
}

// The one line of a public form, and its dates.
const QList<ReportField>& formFields() {
    static const QList<ReportField> fields{
        {u"Kazu"_qs, Integer},          {u"Tanka"_qs, Currency},     {u"JuryoEra"_qs, Text, 10},
        {u"IninEra"_qs, Text, 10},      {u"SeikyuEra"_qs, Text, 10}, {u"MitumoriEra"_qs, Text, 10},
        {u"JuryoDate"_qs, Text, 30},    {u"IninDate"_qs, Text, 30},  {u"SeikyuDate"_qs, Text, 30},
        {u"MitumoriDate"_qs, Text, 30},
    };
    return fields;
}

// A part's name and its form stand in one field here.
QList<ReportField> withMaterialsFor(QList<ReportField> fields, int size) {
    for (ReportField& field : fields)
        if (field.name == u"Materials") field.size = size;
    return fields;
}

} // namespace

ReportRecordset csEstimateRecordset() { return ReportRecordset(sharedFields() + formFields()); }

ReportRecordset csEstWorkRecordset() {
    constexpr int nameAndForm = 55;
    static const QList<ReportField> own{{u"Form"_qs, Text, 34}, {u"Kind"_qs, Text, 39}, {u"Biko"_qs, Text, 40}};
    return ReportRecordset(withMaterialsFor(sharedFields(), nameAndForm) + own);
}

ReportRecordset csEstReceiptRecordset() {
    static const QList<ReportField> fields{{u"AskNo"_qs, Integer},  {u"EstName"_qs, Text, 50}, {u"CustNm"_qs, Text, 31},
                                           {u"Total"_qs, Currency}, {u"TaxRate"_qs, Float},    {u"Tax"_qs, Float},
                                           {u"EstSum"_qs, Currency}};
    return ReportRecordset(fields);
}
