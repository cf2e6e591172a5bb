#pragma once

#include "customers/clsCustomerManager.h"

#include <QList>
#include <QString>
#include <QStringList>

// What the estimate list is searched by, as it stands in the fields. An empty text asks nothing; dates are
// "yyyy/mm/dd".
struct EstimateListFilter {
    struct Period {
        QString from, to;
    };

    QString CsNo, Name1, Name2, Kana1, Kana2, Birth, Zip, Pref, City, Addr, TelNo;
    QString InsNo, ClaimCd, ClaimNm; // InsNo is a 法別No
    QString EstNo, ProductCd, ProductNm, Producer;
    QStringList ProcKbn; // 処理区分番号; none: any
    Period RecvDate, PickPtnDate, DelvFinDate, LifeEnd;
    QString DiseaseNm, OrderCd, OrderNm, Doctor;

    // The condition over the tables of the list (see `clsCsEstimateManager::GetListWithMst`); empty when nothing is
    // asked. Signs such as % in a text stand for themselves.
    SqlTerm condition() const;
    // Whether something is asked, and of the person alone.
    bool asksForPersonAlone() const;

private:
    SqlTerm claims() const;
};

// The condition narrowed to these customers; with none it stays as it is.
SqlTerm withCustomers(const SqlTerm& condition, const QList<CustomerKey>& customers);
