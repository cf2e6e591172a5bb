#pragma once

#include "db/TableManager.h"

// Table `企業情報`: the office itself, one row.
struct clsOffice {
    QString TradeNm; // 登録名称
    QString TradeNo; // 登録番号
    QString Zip;     // 郵便番号
    QString Addr1;   // 住所１
    QString Addr2;   // 住所２
    QString office;  // 企業名
    QString UserNm;  // 代表者名
    QString Tel;     // 電話番号
    QString Fax;     // FAX
    QString Email;   // EMAIL
    QString Url;     // URL
    QString Bank;    // 振込先1
    QString AcntNo;  // 振込先2
    QString ChkAcnt; // 当座名
};

class clsOfficeManager : public TableManager<clsOffice> {
public:
    clsOfficeManager();

    // Every reader uses number 1. False when there is no such row.
    bool GetData(int number, clsOffice& office);
    void SaveData(int number, const clsOffice& office);
};

extern clsOfficeManager gOfficeManager;
