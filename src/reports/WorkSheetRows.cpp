#include "reports/WorkSheetRows.h"

#include "base/Numbers.h"
#include "base/basCommon.h"
#include "reports/CsEstimateFields.h"

#include <algorithm>

namespace {

using namespace CsEstimateValues;
using namespace LineRows;

constexpr int noSection = 7;

// An element belongs to a section when its name has one of the words and none of the others.
struct SectionRule {
    int section = 0;
    QStringList words;
    QStringList others{};
};

struct SheetForm {
    QList<SectionRule> rules;    // the first one that holds counts
    QList<QStringList> headings; // by the lines that they take, from the highest section down to 1
    QString partsHeading;
};

// The forms write a heading of two lines over two rows, the second one set in.
const SheetForm limbForm{{{6, {u"複製"_qs}},
                          {6, {u"基本"_qs}, {u"ハーネス"_qs, u"懸垂用部品"_qs}},
                          {1, {u"外装"_qs}},
                          {2, {u"義足懸垂用部品"_qs, u"ハーネス"_qs, u"懸垂用部品"_qs}},
                          {3, {u"支持部"_qs}},
                          {4, {u"ソフトインサート"_qs}},
                          {5, {u"ソケット"_qs}}},
                         {{u"ニ．基本価格"_qs},
                          {u"ホ．ソケット"_qs},
                          {u"ヘ．ソフトインサート"_qs},
                          {u"ト．支持部"_qs},
                          {u"チ．義手用ハーネス及"_qs, u"　　び義足懸垂用部品"_qs},
                          {u"リ．外装"_qs}},
                         u"ヌ．完成用部品"_qs};

const QList<SectionRule> equipRules{{5, {u"基本"_qs, u"複製"_qs}},
                                    {2, {u"その他の加算要素"_qs}},
                                    {3, {u"支持部"_qs}},
                                    {4, {u"継手"_qs}},
                                    {1, {u"付属品等の加算要素"_qs}}};

const SheetForm equipForm{equipRules,
                          {{u"ニ．基本価格"_qs},
                           {u"ホ．継手"_qs},
                           {u"ヘ．支持部"_qs},
                           {u"ト．その他の加算要素"_qs},
                           {u"　　付属品等の加算要素"_qs}},
                          u"チ．完成用部品"_qs};

const SheetForm wheelchairForm{
    equipRules,
    {{u"基本価格"_qs}, {u"継手"_qs}, {u"支持部"_qs}, {u"その他の加算要素"_qs}, {u"付属品等の加算要素"_qs}},
    u"完成用部品"_qs};

const SheetForm& formOf(WorkSheet sheet) {
    switch (sheet) {
    case WorkSheet::Limb:
        return limbForm;
    case WorkSheet::Equip:
        return equipForm;
    case WorkSheet::Wheelchair:
        break;
    }
    return wheelchairForm;
}

bool hasAny(const QString& text, const QStringList& words) {
    return std::any_of(words.begin(), words.end(), [&](const QString& word) { return text.contains(word); });
}

clsCsItem headItem(const CsEstimateSource& source) {
    for (const clsCsMakeElmt& element : source.makeElements)
        if (element.MakeElmt == basicPrice) return itemOf(source.items, element.EstItemNo);
    return source.items.value(0);
}

// Collects the rows of one claim before they are added, since the remarks on a discount belong to the last of them.
class Sheet {
public:
    Sheet(WorkSheet sheet, const CsEstimateSource& source)
        : m_sheet(sheet), m_form(formOf(sheet)), m_source(source), m_head(headItem(source).EstItemNo) {}

    QList<Values> rows() {
        const int sections = static_cast<int>(m_form.headings.size());
        for (int section = sections; section >= 1; --section)
            addSection(m_form.headings.at(sections - section), elementsOf(section));
        for (const clsCsMakeElmt& element : elementsOf(noSection)) addElement(element.MakeElmt, element);
        remark(m_lastElement, discountWords(reducingRates({m_source.estimate.Discount1, m_source.estimate.Discount2})));
        addParts();
        return std::move(m_rows);
    }

private:
    QList<clsCsMakeElmt> elementsOf(int section) const {
        QList<clsCsMakeElmt> elements;
        for (const clsCsMakeElmt& element : m_source.makeElements)
            if (workSection(m_sheet, element.MakeElmt) == section) elements.append(element);
        return elements;
    }

    void addSection(const QStringList& heading, const QList<clsCsMakeElmt>& elements) {
        for (qsizetype i = 0; i < std::max(heading.size(), elements.size()); ++i)
            i < elements.size() ? addElement(heading.value(i), elements.at(i))
                                : m_rows.append(Values{{u"Elmt"_qs, heading.at(i)}});
    }

    void addElement(const QString& heading, const clsCsMakeElmt& element) {
        m_lastElement = m_rows.size();
        m_rows.append(Values{{u"Elmt"_qs, heading}, {u"Materials"_qs, materialsOf(heading, element)}} +
                      amounts(element.Suryo, element.Price));
        if (element.MakeElmt == basicPrice && element.EstItemNo != m_head) remark(m_lastElement, nameOf(element));
    }

    // A row that neither its heading nor its material tells carries the element's own name.
    static QString materialsOf(const QString& heading, const clsCsMakeElmt& element) {
        const QString materials = unlessWildcard(element.Materials);
        return materials.isEmpty() && !heading.endsWith(element.MakeElmt) ? element.MakeElmt : materials;
    }

    // A sheet is headed by one item; the basic price of a further one says whose it is.
    QString nameOf(const clsCsMakeElmt& element) const {
        const clsCsItem item = itemOf(m_source.items, element.EstItemNo);
        const QString name = unlessWildcard(item.Name);
        return name.isEmpty() ? item.Item : name;
    }

    void addParts() {
        qsizetype last = -1;
        for (const clsCsCmpltElmt& part : m_source.completeElements) {
            const QString heading = last < 0 ? m_form.partsHeading : QString();
            last = m_rows.size();
            m_rows.append(Values{{u"Elmt"_qs, heading},
                                 {u"PartsCd"_qs, part.PartsCd},
                                 {u"Materials"_qs, JoinWithSpace(part.PartsNm, unlessWildcard(part.Form))}} +
                          amounts(part.Suryo, part.Price));
        }
        if (last < 0) m_rows.append(Values{{u"Elmt"_qs, m_form.partsHeading}});
        remark(last, discountWords(reducingRates({m_source.estimate.Discount3})));
    }

    // The sheets have no rows for a discount, so that the lines alone would not lead to the total.
    void remark(qsizetype row, const QString& words) {
        if (row < 0 || words.isEmpty()) return;
        for (auto& [name, value] : m_rows[row])
            if (name == u"Biko") {
                value = JoinWithSpace(value.toString(), words);
                return;
            }
        m_rows[row].append({u"Biko"_qs, words});
    }

    WorkSheet m_sheet;
    const SheetForm& m_form;
    const CsEstimateSource& m_source;
    QString m_head; // number of the item that the sheet is headed by
    QList<Values> m_rows;
    qsizetype m_lastElement = -1;
};

} // namespace

int workSection(WorkSheet sheet, const QString& element) {
    for (const SectionRule& rule : formOf(sheet).rules)
        if (hasAny(element, rule.words) && !hasAny(element, rule.others)) return rule.section;
    return noSection;
}

Values sheetHead(const CsEstimateSource& source) {
    const clsCsItem item = headItem(source);
    return {{u"Form"_qs, unlessWildcard(item.Form)}, {u"Kind"_qs, JoinWithSpace(item.Item, unlessWildcard(item.Name))}};
}

ReportRecordset workSheetRows(WorkSheet sheet, const CsEstimateSource& source) {
    ReportRecordset records = csEstWorkRecordset();
    const Values head = product(headItem(source), source.pickStyles) + sheetHead(source);
    forEachDocument(source, [&](const clsCsEstAsk& claim, int copy) {
        const Values shared = header(source, claim, copy) + head;
        for (const Values& row : Sheet(sheet, source).rows()) addRow(records, shared, row);
    });
    return records;
}
