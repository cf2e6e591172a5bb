#pragma once

#include "customers/clsCustomerManager.h"
#include "estimates/EstimateRecords.h"
#include "reports/ClaimBox.h"
#include "reports/DocumentChoice.h"
#include "reports/ReportRecordset.h"

// Which of the customer's data the installation prints, from the system settings.
struct DocumentSwitches {
    bool sex = true;
    int birth = 1; // 1 full date, 2 year, else none
    bool insured = true;
    bool address = true;
    bool tel = true;
    int dateForm = 1; // of the issue date, see ReportText::issueDate
};

// Everything that a document of an estimate is made of. The rows are not added up: the totals are those stored.
struct CsEstimateSource {
    DocumentKind kind = DocumentKind::Estimate;
    int copies = 1;
    QList<int> claimNumbers; // 請求No of the claims that take part
    clsCsEstimate estimate;
    clsCustomer customer;
    QList<clsCsItem> items;
    QList<clsCsMakeElmt> makeElements;
    QList<clsCsCmpltElmt> completeElements;
    QList<clsCsEstAsk> claims;
    bool wholeSum = false; // a receipt over the grand total
    DocumentSwitches switches{};
    InsNames insNames{};
    QHash<QString, QString> pickStyles{}; // display words by 採型採寸
    QString familyType{};                 // display word of 本人区分
    bool insurersOff = false;
};

// The rows of all copies of all claims that take part. The copies are the outer loop: every claim once, then every
// claim marked 控.
ReportRecordset csEstimateRows(const CsEstimateSource& source);

// The same rows on the fields of an accident sheet, of `GetCsEstimateWorkOther`.
ReportRecordset csEstimateWorkRows(const CsEstimateSource& source);

// The one row of `GetCsEstReceiptData`, for the first claim that takes part: the contract over the whole estimate.
ReportRecordset csEstReceiptRows(const CsEstimateSource& source);
