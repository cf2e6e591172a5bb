#include "payments/screens/EditedPaymentScreen.h"

#include "base/Numbers.h"
#include "base/basMessage.h"
#include "db/clsDbManager.h"
#include "ui/Grid.h"

#include <QLabel>

namespace {

constexpr qsizetype mostTold = 15;

QString unreflected(qsizetype edits) { return edits == 0 ? QString() : u"未反映：%1件"_qs.arg(formatThousands(edits)); }

void tellChanged(const QStringList& orders) {
    if (orders.isEmpty()) return;
    QStringList told = orders.first(qMin(orders.size(), mostTold));
    if (orders.size() > mostTold) told << u"ほか %1件"_qs.arg(formatThousands(orders.size() - mostTold));
    ShowMessage(Message::Warning,
                u"次の見積は、一覧に表示した後で他の端末で変更または削除されたため、反映していません。\n"
                u"今の内容を確かめて、必要ならもう一度入力してください。\n\n"_qs +
                    told.join(u'\n'));
}

} // namespace

void EditedPaymentScreen::setUpEditing(Grid* grid, QLabel* count, QLabel* edited) {
    m_list = new EditedList(grid, count, gDbManager.Connection().settings(),
                            [this](const QStringList& keys) { return fetch(keys); });
    m_list->follow = [this](int column, QStringList& values) { follow(column, values); };
    connect(m_list, &EditedList::changed, edited,
            [this, edited] { edited->setText(unreflected(m_list->edits().size())); });
}

QHash<QString, QStringList> EditedPaymentScreen::fetch(const QStringList& keys) {
    QHash<QString, QStringList> cells;
    rows().forEach(keys, [&](const PaymentRow& row) { cells.insert(row.estimate.EstId, cellsOf(row)); });
    return cells;
}

bool EditedPaymentScreen::reflect() {
    const QList<EditedList::Row> edits = m_list->edits();
    SetWaitCursor(true);
    const QStringList changed = write(edits);
    SetWaitCursor(false);
    QStringList keys, told;
    for (const EditedList::Row& row : edits) {
        keys << row.key();
        if (changed.contains(row.key())) told << whose(row);
    }
    m_list->settle(keys);
    tellChanged(told);
    if (told.isEmpty() || told.size() < keys.size()) ShowMessage(Message::Information, u"保存しました。"_qs);
    return told.isEmpty();
}

bool EditedPaymentScreen::queryUnload() {
    if (!PaymentListScreen::queryUnload()) return false;
    if (!m_list->hasEdits()) return true;
    switch (ShowMessage(Message::AskSave, u"入金情報"_qs)) {
    case AnswerYes:
        return reflect();
    case AnswerNo:
        return true;
    default:
        return false;
    }
}
