#include "price/basPriceSelection.h"

#include "price/PriceManagers.h"

namespace {

const QList<clsBaseElmtSelect>& fixedRows() {
    const QString any = u"＊"_qs;
    static const QList<clsBaseElmtSelect> rows{
        {{}, u"車椅子"_qs, any, u"基本価格"_qs, u"オーダーメイド"_qs},
        {{}, u"車椅子"_qs, any, u"基本価格"_qs, u"レディメイド"_qs},
        {{}, u"車椅子"_qs, any, u"加算"_qs, u"調整加算（オーダーメイド）"_qs},
        {{}, u"車椅子"_qs, any, u"加算"_qs, u"調整加算（レディメイド）"_qs},
        {{}, u"電動車椅子"_qs, any, u"加算"_qs, u"調整加算"_qs},
    };
    return rows;
}

QList<clsBaseElmtSelect> selectionRows(Connection& connection) {
    clsPriceBaseManager bases;
    clsPriceAddManager additions;
    clsPriceElmtManager elements;
    bases.Prepare(connection);
    additions.Prepare(connection);
    elements.Prepare(connection);
    QList<clsPriceBase> baseGroups;
    QList<clsPriceAdd> additionGroups;
    QList<clsPriceElmt> elementGroups;
    bases.GetItemPickKbnGrpList(baseGroups);
    additions.GetItemPickKbnAddElmtGrpList(additionGroups);
    elements.GetItemPickKbnMakeElmtMaterialsGrpList(elementGroups);

    QList<clsBaseElmtSelect> rows = fixedRows();
    for (const clsPriceBase& group : baseGroups)
        rows << clsBaseElmtSelect{{}, group.Item, group.PickKbn, u"基本価格"_qs, u"＊"_qs};
    for (const clsPriceAdd& group : additionGroups)
        rows << clsBaseElmtSelect{{}, group.Item, group.PickKbn, u"加算"_qs, group.AddElmt};
    for (const clsPriceElmt& group : elementGroups)
        rows << clsBaseElmtSelect{{}, group.Item, group.PickKbn, group.MakeElmt, group.Materials};
    return rows;
}

} // namespace

void RebuildBaseElmtSelect(Connection& connection, const std::function<void(qint64, qint64)>& progress) {
    Transaction transaction(connection);
    clsBaseElmtSelectManager selection;
    selection.Prepare(connection);
    selection.DeleteData({});
    const QList<clsBaseElmtSelect> rows = selectionRows(connection);
    qint64 id = 0;
    for (clsBaseElmtSelect row : rows) {
        row.ID = QString::number(++id);
        selection.SaveInit(row);
        if (progress) progress(id, rows.size());
    }
    transaction.commit();
}
