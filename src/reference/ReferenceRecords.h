#pragma once

#include <QString>

// The rows of the small code tables. `Seq` is the order text (順番), the time of creation until a row is moved;
// `UseFlg` is "0" for a row in use and anything else for a retired one.

struct clsPrefecture {
    QString PrefNo, Pref, City, Seq;
};

struct clsIns {
    QString InsNo, InsNm, Seq, UseFlg;
};

struct clsClaim {
    QString ClaimNo, ClaimCd, ClaimNm;
    QString Zip, Addr1, Addr2, Tel, Fax, Email, Url, MasterNm, ChargeNm;
    QString Seq, UseFlg;
};

struct clsOrder {
    QString OrderNo, OrderCd, OrderNm;
    QString Zip, Addr1, Addr2, Tel, Fax, Email, Url, MasterNm, ChargeNm;
    QString Seq, UseFlg;
};

struct clsDoctor {
    QString DoctorNo, DoctorCd, DoctorNm, OrderNo, Seq, UseFlg;
};

struct clsProducer {
    QString ProducerNo, ProducerCd, ProducerNm, Seq, UseFlg;
};

struct clsStaff {
    QString StaffNo, StaffCd, StaffNm;
};

struct clsProcKbn {
    QString ProcKbnNo, ProcKbnNm1, ProcKbnNm2; // 処理区分, 処理区分統計用
};

// A pair of 法別 and 請求先 with the names of both.
struct clsInsClaim {
    QString InsClaimNo, InsNo, InsNm, ClaimNo, ClaimCd, ClaimNm, Seq;
};

struct clsEquip {
    QString EquipNo, EquipNm, Seq, UseFlg;
};

// A row of the postal code book.
struct clsZip {
    QString Zip, Pref, City, Town;
};
