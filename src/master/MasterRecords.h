#pragma once

#include <QString>

// A master estimate: the pattern of an estimate under a product code. All members are text; amounts are whole yen
// without tax, and those of the lines are already quantity times unit price.

struct clsMstEstimate {
    QString ProductId, ProductCd, ProductNm;
    QString PriceSedYear;                      // the price year of the amounts, of the rows below as well
    QString PriceSmall, PriceMiddle, PriceBig; // totals for 小人, 中人 and 大人
    QString AddDate, UpdDate, UpdUserNo, Memo;
};

struct clsMstItem {
    QString ProductId, ProductItemNo; // from 1, without gaps: only the number ties the lines to their item
    QString Item, PickKbn, Name, Form;
    QString PickStyle;   // 管理No of 採型／採寸, "0" without the choice
    QString GrantRepair; // 管理No of 交付／修理
};

// A base or make element line, priced for each age tier.
struct clsMstMakeElmt {
    QString ProductId, ProductItemNo, ElmtNo;
    QString MakeElmt, Materials, Suryo;
    QString PriceSmall, PriceMiddle, PriceBig;
};

// A completed part line; a part costs every tier the same.
struct clsMstCmpltElmt {
    QString ProductId, ProductItemNo, ElmtNo;
    QString PartsNm, Form, MakerNm, PartsCd, Suryo, Price;
};
