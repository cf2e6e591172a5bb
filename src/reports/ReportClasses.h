#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

class clsProfile;

// The report classes of the ordinary documents and the rule that chooses among them.

// The document kinds, the first argument of `GetCsEstimateData`.
enum class DocumentKind { Estimate = 1, Breakdown = 2, Detail = 3, Invoice = 4, Receipt = 5 };

struct ReportClass {
    QString name;       // also that of its layout and of its INI section
    QString title;      // what the operator calls the document; empty: PrtType decides
    int fewerLines = 0; // rows that a taller header takes from each page
    bool isList = false;
};

// The document's name in windows, files and the printer's queue.
QString documentTitle(const ReportClass& report, int prtType);

// Raises an error for a class that the system does not have.
const ReportClass& reportClass(const QString& name);
const QList<ReportClass>& reportClasses();
// The lists: plain rows on as many pages as they need, without office block and padding.
const QList<ReportClass>& listClasses();

// The settings that the choice depends on, by their numbers, and the entries of the installation.
struct DocumentChoiceSettings {
    QHash<int, int> values;                           // No 21, 23, 25, 27, 29, 41, 43; a missing one counts as 1
    bool estimateVariant = false;                     // repCsEstimate2A4 in place of repCsEstimateA4
    bool receiptVariant = false;                      // repCsEstPay2A4 in place of repCsEstPayA4
    bool accidentInvoice = false;                     // profile WorkAsk/WorkOutPut
    bool threeAccounts = false;                       // profile PayBank/Plural
    QString contractLimit = QStringLiteral("500000"); // profile Receipt/Price, whole yen

    int value(int number) const { return values.value(number, 1); }
};

// Reads the entries of the installation; the numbered settings are the caller's to fill. A variant is in force when
// Variant/<class> is 1, or when EstimateKind/ImateName or EstPayKind/PayName holds its class name.
DocumentChoiceSettings readDocumentChoiceSettings(const clsProfile& profile);

struct DocumentChoice {
    enum class Outcome {
        Print,          // the classes, one after the other
        AccidentSheets, // the sheets for industrial-accident claims; those of a breakdown depend on the 種目
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

// True when a government contract of this sum needs its 請書: strictly more than the limit.
bool needsContractReceipt(const QString& estSum, const QString& limit);

// How often a document is made: invoices and receipts with their 控 unless setting 39 or 15 is 2, all others once.
int documentCopies(DocumentKind kind, int copySetting);
