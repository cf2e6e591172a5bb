#include "reports/CsEstimateDocument.h"

#include "base/Dates.h"
#include "base/Numbers.h"
#include "price/basPriceLookup.h"
#include "reports/CsEstimateFields.h"
#include "reports/CsEstimateValues.h"
#include "reports/LineRows.h"
#include "reports/ReportText.h"
#include "reports/WorkSheetRows.h"

#include <utility>

namespace {

using namespace CsEstimateValues;

// A discount that was never entered leaves the amount as it is.
int percentage(const QString& text) { return text.trimmed().isEmpty() ? 100 : ToInt(Val(text)); }

int discounted(double subtotal, int first, int second) {
    qint32 amount = 0, unusedParts = 0, unusedTax = 0, unusedTotal = 0;
    CalcAmounts(ToInt(subtotal), 0, first, second, 100, 0, amount, unusedParts, unusedTax, unusedTotal);
    return amount;
}

// Builds the rows of one claim and copy behind those that are there already.
class Document {
public:
    Document(const CsEstimateSource& source, ReportRecordset& records, Values header, Values ofFirstRow = {})
        : m_source(source), m_records(records), m_header(std::move(header)), m_ofFirstRow(std::move(ofFirstRow)) {}

    void addRows() {
        const double makeSum = addMakeRows();
        const QStringList rates = reducingRates({m_source.estimate.Discount1, m_source.estimate.Discount2});
        if (!rates.isEmpty())
            addDiscount(makeSum, rates, percentage(m_source.estimate.Discount1),
                        percentage(m_source.estimate.Discount2));
        else if (!m_source.completeElements.isEmpty())
            addRow({});
        if (m_source.completeElements.isEmpty()) return;
        const double partsSum = addCompleteRows();
        const QStringList partRates = reducingRates({m_source.estimate.Discount3});
        if (!partRates.isEmpty()) addDiscount(partsSum, partRates, percentage(m_source.estimate.Discount3), 100);
    }

private:
    void addRow(const Values& values) {
        CsEstimateValues::addRow(m_records, m_header, std::exchange(m_ofFirstRow, {}) + values);
    }

    void addDiscount(double subtotal, const QStringList& rates, int first, int second) {
        addRow(LineRows::subtotal(subtotal));
        addRow({{u"SumCal"_qs, discountWords(rates)}, {u"Price"_qs, discounted(subtotal, first, second)}});
    }

    double addMakeRows() {
        double subtotal = 0;
        for (const clsCsMakeElmt& line : m_source.makeElements) {
            addRow(LineRows::makeLine(line, m_source.items, m_source.pickStyles));
            subtotal += Val(line.Price);
        }
        return subtotal;
    }

    double addCompleteRows() {
        addRow(LineRows::partsHead());
        double subtotal = 0;
        for (const clsCsCmpltElmt& line : m_source.completeElements) {
            addRow(LineRows::partsLine(line));
            subtotal += Val(line.Price);
        }
        return subtotal;
    }

    const CsEstimateSource& m_source;
    ReportRecordset& m_records;
    Values m_header, m_ofFirstRow;
};

// A date of a public form: the figures in two places, or the blank form for the pen.
QString formDate(const QString& date) {
    if (!parseDate(date)) return u"　　　　年　　　月　　　日"_qs;
    const auto figures = [&](const QString& part) { return FormatEraDate(date, part).rightJustified(2, u'0'); };
    return u"%1　%2年　%3月　%4日"_qs.arg(FormatEraDate(date, u"ggg"_qs), figures(u"e"_qs), figures(u"m"_qs),
                                          figures(u"d"_qs));
}

// The dates of 検収, 委任, 請求 and 見積.
Values formDates(const CsEstimateSource& source, const clsCsEstAsk& claim) {
    const QString delivered = source.estimate.DelvFinDate;
    const QList<std::pair<QString, QString>> dates{{u"Juryo"_qs, delivered},
                                                   {u"Inin"_qs, delivered},
                                                   {u"Seikyu"_qs, claim.AskPrtDate},
                                                   {u"Mitumori"_qs, source.estimate.EstPrtDate}};
    Values values;
    for (const auto& [name, date] : dates)
        values += Values{{name + u"Era"_qs, FormatEraDate(date, u"ggg"_qs)}, {name + u"Date"_qs, formDate(date)}};
    return values;
}

// A public form has one line for the whole estimate: how many, by its first row, and what each comes to.
Values formLine(const CsEstimateSource& source) {
    if (source.makeElements.isEmpty()) return {};
    const QString quantity = source.makeElements.first().Suryo;
    Values values{{u"Kazu"_qs, quantity}};
    if (const int whole = ToInt(Val(quantity)); whole > 0)
        values.append({u"Tanka"_qs, Val(source.estimate.Total) / whole});
    return values;
}

} // namespace

ReportRecordset csEstimateRows(const CsEstimateSource& source) {
    ReportRecordset records = csEstimateRecordset();
    forEachDocument(source, [&](const clsCsEstAsk& claim, int copy) {
        Document(source, records, header(source, claim, copy) + formDates(source, claim), formLine(source)).addRows();
    });
    return records;
}

ReportRecordset csEstimateWorkRows(const CsEstimateSource& source) {
    ReportRecordset records = csEstWorkRecordset();
    forEachDocument(source, [&](const clsCsEstAsk& claim, int copy) {
        Document(source, records, header(source, claim, copy) + sheetHead(source)).addRows();
    });
    return records;
}

ReportRecordset csEstReceiptRows(const CsEstimateSource& source) {
    ReportRecordset records = csEstReceiptRecordset();
    forEachDocument(source, [&](const clsCsEstAsk& claim, int copy) {
        if (!records.isEmpty()) return;
        records.AddNew();
        for (const auto& [name, value] : header(source, claim, copy))
            if (records.hasField(name)) records.Set(name, value);
    });
    return records;
}
