#pragma once

#include "reports/ReportClasses.h"

// Which report class prints a document of an estimate.

// The document kinds, the first argument of `GetCsEstimateData`.
enum class DocumentKind { Estimate = 1, Breakdown = 2, Detail = 3, Invoice = 4, Receipt = 5 };

// What the choice depends on: the settings No 21, 23, 25, 27, 29, 41 and 43, and the entries of the installation.
struct DocumentChoiceSettings : ReportPaperSettings {
    bool accidentInvoice = false;                     // profile WorkAsk/WorkOutPut
    bool threeAccounts = false;                       // profile PayBank/Plural
    QString contractLimit = QStringLiteral("500000"); // profile Receipt/Price, whole yen
};

// Reads the entries of the installation; the numbered settings are the caller's to fill. A variant is in force when
// Variant/<class> is 1, or when EstimateKind/ImateName or EstPayKind/PayName holds its class name.
DocumentChoiceSettings readDocumentChoiceSettings(const clsProfile& profile);

struct DocumentChoice {
    enum class Outcome {
        Print,          // the classes, one after the other
        AccidentSheets, // the sheets for industrial-accident claims; those of a breakdown are `accidentSheets`
        SkipAccident    // accident rows have no detail sheet: they are left out, and the operator is told
    };
    Outcome outcome = Outcome::Print;
    QStringList classes{};
    QString message{}; // what the operator is told when rows are left out
    int prtType = 0;   // of the sheets that serve two documents: 1 内訳書, 2 明細書; else 0
    bool operator==(const DocumentChoice&) const = default;
};

// The layout for the rows of one kind. Accident rows (法別No 14) and the others are asked for separately.
// `receivedMark` is 受領印 of the screen, `estSum` the grand total in whole yen.
DocumentChoice chooseDocument(DocumentKind kind, bool accidentRows, const DocumentChoiceSettings& settings,
                              bool receivedMark, const QString& estSum);

// The price sheets of an accident claim, which print the same rows one after the other.
struct AccidentSheets {
    enum class Rows { Ordinary, Limb, Equip };
    Rows rows = Rows::Ordinary;
    QStringList classes{};
    int prtType = 0; // as that of DocumentChoice
    bool operator==(const AccidentSheets&) const = default;
};

// By the 種目 of the estimate's first item.
AccidentSheets accidentSheets(const QString& item);

// True when a government contract of this sum needs its 請書: strictly more than the limit.
bool needsContractReceipt(const QString& estSum, const QString& limit);

// How often a document is made: invoices and receipts with their 控 unless setting 39 or 15 is 2, all others once.
int documentCopies(DocumentKind kind, int copySetting);
