#pragma once

#include <QString>

// One estimate of one customer branch. All members are text; amounts are whole yen.

struct clsCsEstimate {
    QString EstId, CustId, CustSubId, ChartNo, GrantNo, EstNo, EstNm;
    QString ProcKbnNo;
    QString Claim; // 自費請求先, written empty
    QString RecvDate, EstDate, ProductCd, ProducerNo, ProducerNm, LifeYear, LifeEnd, PriceSedYear;
    QString Discount1, Discount2, Discount3; // percentages that remain payable
    QString Tax;                             // 合計加算: the tax percentage of this estimate
    QString Total;                           // 合計: before tax
    QString EstSum;                          // 見積総合計
    QString Category, Frame;
    QString TickRsvDate, PickPtnDate, TmpSetPlnDate, TmpSetFinDate, CmpltPlnDate, CmpltFinDate;
    QString DelvPlnDate, DelvFinDate, AskPlnDate, AskFinDate, PayInPlnDate, PayInFinDate;
    QString EstPrtDate, ItmPrtDate, DtlPrtDate, OpnPrtDate;
    QString AddDate, UpdDate, UpdUserNo, Memo;
    // Fields of the receivable ledger, which a save of the editor leaves as they stand.
    QString Articles, EquipMent, Payment, Discount, Urikake;
    QString Charge1No, Charge1Nm; // 担当義肢装具士
};

struct clsCsItem {
    QString EstId, EstItemNo;
    QString Item, PickKbn, Name, Form;
    QString PickStyle;              // 管理No of 採型／採寸, "0" without the choice
    QString GrantRepair;            // 管理No of 交付／修理
    QString MkElmTotal, CpElmTotal; // written "0"
};

// A base or make element line. `Price` is the amount of the line, already quantity times unit price.
struct clsCsMakeElmt {
    QString EstId, EstItemNo, ElmtNo;
    QString MakeElmt, Materials, Suryo, Price;
};

// A completed part line.
struct clsCsCmpltElmt {
    QString EstId, EstItemNo, ElmtNo;
    QString PartsNm, Form, MakerNm, PartsCd, Suryo, Price;
};

// A claim line; at most 4, numbered from 1.
struct clsCsEstAsk {
    QString EstId, AskNo, InsNo, ClaimNo, ClaimNm;
    QString AskDate, AskPrice, AskPrtDate, PayDate, PayPrice, PayPrtDate;
};
