#include "reports/LineRows.h"

#include "base/Numbers.h"
#include "price/basPriceLookup.h"

namespace LineRows {

const QString basicPrice = u"基本価格"_qs;

namespace {

bool isWildcard(const QString& text) { return text == u"*" || text == u"＊"; }

bool takesNameAsPickKbn(const QString& item) { return item == u"車椅子" || item == u"車いす"; }

} // namespace

QString unlessWildcard(const QString& text) { return isWildcard(text) ? QString() : text; }

clsCsItem itemOf(const QList<clsCsItem>& items, const QString& itemNo) {
    for (const clsCsItem& item : items)
        if (Val(item.EstItemNo) == Val(itemNo)) return item;
    return {};
}

Values product(const clsCsItem& item, const QHash<QString, QString>& pickStyles) {
    Values values{{u"Item"_qs, item.Item}};
    if (takesNameAsPickKbn(item.Item)) {
        values.append({u"PickKbn"_qs, item.Name});
    } else {
        values.append({u"PickKbn"_qs, unlessWildcard(item.PickKbn)});
        values.append({u"Name"_qs, unlessWildcard(item.Name)});
    }
    if (hasPickStyle(item.Item)) values.append({u"PickStyle"_qs, pickStyles.value(item.PickStyle)});
    return values;
}

Values amounts(const QString& suryo, const QString& price) {
    const double quantity = Val(suryo);
    Values values{{u"Suryo"_qs, suryo}, {u"Price"_qs, Val(price)}};
    if (quantity > 0) values.append({u"Unit"_qs, roundHalfEven(Val(price) / quantity)});
    return values;
}

Values makeLine(const clsCsMakeElmt& line, const QList<clsCsItem>& items, const QHash<QString, QString>& pickStyles) {
    Values values{{u"Elmt"_qs, line.MakeElmt}};
    if (line.MakeElmt == basicPrice)
        values += product(itemOf(items, line.EstItemNo), pickStyles);
    else
        values.append({u"Materials"_qs, line.Materials});
    return values + amounts(line.Suryo, line.Price);
}

Values partsHead() { return {{u"Elmt"_qs, u"完成用部品"_qs}}; }

Values partsLine(const clsCsCmpltElmt& line) {
    return Values{{u"Elmt"_qs, line.PartsNm},
                  {u"PartsForm"_qs, unlessWildcard(line.Form)},
                  {u"MakerNm"_qs, line.MakerNm},
                  {u"PartsCd"_qs, line.PartsCd}} +
           amounts(line.Suryo, line.Price);
}

Values subtotal(double amount) { return {{u"SumTitle"_qs, u"小　　　計"_qs}, {u"Price"_qs, amount}}; }

} // namespace LineRows
