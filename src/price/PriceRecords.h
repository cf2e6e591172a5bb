#pragma once

#include <QString>

// The rows of the price tables. Prices are whole yen; 1 is 大人 (15歳以上), 2 中人 (6～14歳), 3 小人 (0～5歳). An ID
// above 9000000 is a user's own row, all others come from the yearly price files.

struct clsPriceItem {
    QString ID;
    QString Item;    // 種目
    QString PickKbn; // 採型区分
    QString Name;    // 名称
    QString Form;    // 形式
    QString AddDate, UpdDate, UpdUserNo;
    QString UseFlg; // 有効Flg: 0 valid
};

struct clsPriceBase {
    QString ID;
    QString Seq; // 順番
    QString Item, PickKbn, Name, Form;
    QString Apply;     // 適用: 1 to 4
    QString PickStyle; // 採型採寸区分: 1 採型, 2 採寸
    QString NewPrice1, NewPrice2, NewPrice3;
    QString OldPrice1, OldPrice2, OldPrice3;
    QString AddDate, UpdDate, UpdUserNo, UseFlg;
};

struct clsPriceAdd {
    QString ID, Seq, Item, PickKbn;
    QString AddElmt;     // 加算要素
    QString GrantRepair; // 交付修理区分
    QString NewPrice, OldPrice;
    QString AddDate, UpdDate, UpdUserNo, UseFlg;
};

struct clsPriceElmt {
    QString ID, Seq, Item, PickKbn;
    QString MakeElmt;  // 製作要素
    QString Materials; // 原材料
    QString NewPrice1, NewPrice2, NewPrice3;
    QString OldPrice1, OldPrice2, OldPrice3;
    QString AddDate, UpdDate, UpdUserNo, UseFlg;
};

struct clsPriceParts {
    QString ID, Item;
    QString Name;    // 名称, of the part
    QString Form;    // 形式
    QString MakerNm; // メーカ名
    QString PartsCd; // 部品コード
    QString UseSet;  // 使用設定: 1 usable
    QString UseChar, UseDmmy;
    QString Memo;
    QString NewPrice, OldPrice;
    QString AddDate, UpdDate, UpdUserNo, UseFlg;
};

// A row of the selection table of the make element grid; MakeElmt may also be 基本価格 or 加算.
struct clsBaseElmtSelect {
    QString ID, Item, PickKbn, MakeElmt, Materials;
};
