#pragma once

#include "ListTiming.h"

#include "master/MasterListFilter.h"
#include "master/MasterManagers.h"
#include "master/screens/frmMsEstimateList.h"
#include "ui/ChoiceBox.h"
#include "ui/TextField.h"

#include <QTabBar>

namespace {

// The list of the master estimates by each page, box, field and heading.
class MasterLists {
public:
    MasterLists() : m_grid(child<Grid>(m_screen, u"flxEstList"_qs)), m_painted(m_grid) {}

    void run() {
        m_screen.show();
        m_screen.Load();
        spinUntil([this] { return m_painted.done() && !m_grid->isFilling(); });
        auto* tabs = child<QTabBar>(m_screen, u"tabEstList"_qs);
        for (int tab = 0; tab < tabs->count(); ++tab) {
            MasterListFilter filter;
            filter.group = tab;
            compare(u"masters, tab "_qs + tabs->tabText(tab).trimmed(), filter, [tabs, tab] {
                if (tabs->currentIndex() == tab)
                    emit tabs->currentChanged(tab);
                else
                    tabs->setCurrentIndex(tab);
            });
        }
        fields();
        boxes();
        for (int column = 1; column < m_grid->columns(); ++column) sortBoth(column);
    }

private:
    inline static const QString byCode = u"[製品コード] ASC,[マスタ見積情報].[製品ID]"_qs;

    static Statements statements(const SqlTerm& where, const QString& sort) {
        return {SqlSelect(u"SELECT * FROM [マスタ見積情報]"_qs, where, SqlTerm(sort)),
                clsMstEstimateManager::Keys(where, SqlTerm(sort))};
    }

    void compare(const QString& name, const MasterListFilter& filter, const std::function<void()>& start) {
        if (isWanted(name))
            print(name, bestOf([&](bool whole) { return play(*m_grid, m_painted, whole, start); }),
                  statements(filter.condition(), byCode));
    }

    void fields() {
        for (const auto& [name, text] : {std::pair{u"txtProductCd"_qs, u"AFO"_qs}, {u"txtProductNm"_qs, u"装具"_qs}}) {
            MasterListFilter filter;
            (name == u"txtProductCd" ? filter.ProductCd : filter.ProductNm) = text;
            auto* field = child<TextField>(m_screen, name);
            compare(u"masters, "_qs + name, filter, [field, text = text] {
                field->setValue({});
                field->setValue(text);
            });
            field->setValue({});
        }
    }

    // Each box on top of those to its left.
    void boxes() {
        MasterListFilter filter;
        for (const auto& [name, member, text] : {std::tuple{u"cboItem"_qs, &MasterListFilter::Item, u"下肢装具"_qs},
                                                 {u"cboPickKbn"_qs, &MasterListFilter::PickKbn, u"E-4"_qs},
                                                 {u"cboName"_qs, &MasterListFilter::Name, u"短下肢装具"_qs},
                                                 {u"cboForm"_qs, &MasterListFilter::Form, u"両側支柱"_qs}}) {
            filter.*member = text;
            auto* box = child<ChoiceBox>(m_screen, name);
            compare(u"masters, "_qs + name, filter, [box, text = text] {
                box->clearChoice();
                box->setText(text);
            });
        }
        child<ChoiceBox>(m_screen, u"cboItem"_qs)->clearChoice();
        spinUntil([this] { return !m_grid->isFilling(); });
    }

    void sortBoth(int column) {
        static const QStringList columns{
            {}, u"製品コード"_qs, u"製品名称"_qs, u"小人価格"_qs, u"中人価格"_qs, u"大人価格"_qs};
        const QString name = u"masters by "_qs + m_grid->column(column).title;
        if (!isWanted(name)) return;
        m_grid->clearSortMark();
        const auto click = [&] { emit m_grid->headingClicked(column); };
        const auto [up, down] = bestOfBoth([&](bool whole) { return play(*m_grid, m_painted, whole, click); });
        for (const auto& [mark, way, figures] : {std::tuple{u" ▲"_qs, u"ASC"_qs, up}, {u" ▼"_qs, u"DESC"_qs, down}})
            print(name + mark, figures, statements({}, u"[%1] %2,"_qs.arg(columns.at(column), way) + byCode));
    }

    frmMsEstimateList m_screen;
    Grid* m_grid;
    Painted m_painted;
};

} // namespace
