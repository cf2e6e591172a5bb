#include "price/screens/PriceForms.h"

#include "base/AppError.h"
#include "db/clsAssistManager.h"
#include "price/basPriceLookup.h"

namespace {

using Field = PriceField;

bool always(const QString&) { return true; }

Field choice(const QString& control, const QString& label, const QString& column, int width) {
    return {control, label, column, Field::Choice, width, 0, always};
}

Field optional(Field field) {
    field.required = nullptr;
    return field;
}

Field sortField() { return {u"txSeqNo"_qs, u"順番"_qs, u"順番"_qs, Field::Words, 10}; }
Field itemField() { return choice(u"cboItem"_qs, u"種目"_qs, u"種目"_qs, 18); }
Field pickKbnField() { return choice(u"cboPickKbn"_qs, u"採型区分"_qs, u"採型区分"_qs, 16); }
Field nameField() { return choice(u"cboName"_qs, u"名称"_qs, u"名称"_qs, 26); }
Field formField() { return choice(u"cboForm"_qs, u"形式"_qs, u"形式"_qs, 30); }

Field price(const QString& control, const QString& label, const QString& column, bool besideLast) {
    return {control, label, column, Field::Price, 11, 0, always, besideLast};
}

// One price for everybody.
QList<Field> onePrice() {
    return {price(u"numNewKakaku"_qs, u"新価格"_qs, u"新価格"_qs, false),
            price(u"numOldKakaku"_qs, u"旧価格"_qs, u"旧価格"_qs, true)};
}

// A price for each age tier.
QList<Field> threePrices() {
    static const QStringList ages{u"（15歳以上）"_qs, u"（6～14歳）"_qs, u"（0～5歳）"_qs};
    static const QStringList digits{u"１"_qs, u"２"_qs, u"３"_qs};
    QList<Field> fields;
    for (int tier = 0; tier < ages.size(); ++tier) {
        const auto of = [tier](const QString& control, const QString& column, bool besideLast) {
            return price(control + QString::number(tier + 1), column + ages.at(tier), column + digits.at(tier),
                         besideLast);
        };
        fields << of(u"numNewKakaku"_qs, u"新価格"_qs, false) << of(u"numOldKakaku"_qs, u"旧価格"_qs, true);
    }
    return fields;
}

PriceForm itemForm() {
    return {u"価格種目"_qs,
            u"frmKakakuSYU"_qs,
            u"価格種目マスタ"_qs,
            u"種目"_qs,
            {itemField(), pickKbnField(), nameField(), formField()}};
}

PriceForm baseForm() {
    return {u"価格基本"_qs, u"frmKakakuKI"_qs, u"価格基本マスタ"_qs, u"基本価格"_qs,
            QList<Field>{sortField(),
                         itemField(),
                         pickKbnField(),
                         nameField(),
                         formField(),
                         {u"txApply"_qs, u"適用"_qs, u"適用"_qs, Field::Whole, 6, 0, isWheelchair},
                         {u"cboPickStyle"_qs, u"採型／採寸"_qs, u"採型採寸区分"_qs, Field::Assist, 11,
                          AssistGroup::PickStyle, hasPickStyle}} +
                threePrices()};
}

PriceForm additionForm() {
    return {u"価格加算"_qs, u"frmKakakuADD"_qs, u"価格加算マスタ"_qs, u"加算価格"_qs,
            QList<Field>{sortField(),
                         itemField(),
                         pickKbnField(),
                         choice(u"cboAddElmt"_qs, u"加算要素"_qs, u"加算要素"_qs, 40),
                         {u"cboGrantRepair"_qs, u"交付／修理"_qs, u"交付修理区分"_qs, Field::AssistValue, 11,
                          AssistGroup::GrantRepair}} +
                onePrice()};
}

PriceForm elementForm() {
    return {u"価格要素"_qs, u"frmKakakuSEI"_qs, u"価格要素マスタ"_qs, u"製作要素"_qs,
            QList<Field>{sortField(), itemField(), pickKbnField(),
                         choice(u"cboMakeElmt"_qs, u"製作要素"_qs, u"製作要素"_qs, 26),
                         choice(u"cboMaterials"_qs, u"原材料"_qs, u"原材料"_qs, 30)} +
                threePrices()};
}

PriceForm partsForm() {
    return {u"価格部品"_qs, u"frmKakakuKAN"_qs, u"価格部品マスタ"_qs, u"完成部品"_qs,
            QList<Field>{itemField(),
                         nameField(),
                         formField(),
                         optional(choice(u"cboMakerNm"_qs, u"メーカ名"_qs, u"メーカ名"_qs, 20)),
                         optional(choice(u"cboPartsCd"_qs, u"部品ｺｰﾄﾞ"_qs, u"部品コード"_qs, 16)),
                         {u"txUseSet"_qs, u"使用設定"_qs, u"使用設定"_qs, Field::Whole, 9, 0, always},
                         {u"txUseChar"_qs, u"使用設定文字"_qs, u"使用設定文字"_qs, Field::Words, 13},
                         {u"txUseDmmy"_qs, u"使用設定ダミー"_qs, u"使用設定ダミー"_qs, Field::Words, 15},
                         {u"txMemo"_qs, u"備考"_qs, u"備考"_qs, Field::Words, 24}} +
                onePrice()};
}

} // namespace

QList<PriceField> PriceForm::choices() const {
    QList<PriceField> found;
    for (const PriceField& field : fields)
        if (field.kind == PriceField::Choice) found << field;
    return found;
}

const QList<PriceForm>& priceForms() {
    static const QList<PriceForm> forms{itemForm(), baseForm(), additionForm(), elementForm(), partsForm()};
    return forms;
}

const PriceForm& priceForm(const QString& table) {
    for (const PriceForm& form : priceForms())
        if (form.table == table) return form;
    throw AppError(u"%1 は価格の表ではありません。"_qs.arg(table), u"PriceForms"_qs);
}
