#pragma once

#include "reports/ReportClasses.h"
#include "reports/ReportRecordset.h"
#include "reports/engine/ReportOutput.h"

#include <memory>
#include <optional>
#include <vector>

// One document on its way from the record set to paper: created by a screen under the name of its report class, given
// the record set, then printed or shown. Without a record set, or with an empty one, nothing happens.
class Report {
public:
    // Raises an error for a class that the system does not have.
    explicit Report(const QString& reportClass);

    void Recordset(ReportRecordset records);
    // A header value that the screen knows, such as the range of dates.
    void Value(const QString& name, const QString& value);
    // 1 titles an item sheet 内訳書, any other 明細書.
    void PrtType(int type) { Value(u"PrtType"_qs, QString::number(type)); }

    // Whom and what it is made for, as a file of it is named.
    void About(const QString& about) { m_about = about; }

    // Called after each few pages that are made or printed; false ends the work, and nothing more is printed.
    void Pausing(std::function<bool()> pause) { m_pause = std::move(pause); }
    // Makes the pages, so that what a paper has no room for is known before the first one is printed; it rises as a
    // ReportValueError. Without it they are made when they are needed.
    void Compose();
    // The finished document; without pages when there are no rows.
    const ReportJob& Job();
    // The document's name in windows, files and the printer's queue; empty without rows.
    QString Title() const;

    void PrintReport(bool withDialog);
    // The preview; it is always modal, which the argument 1 asks for. That of several shows them one behind the other.
    void Show(int modal = 1);
    static void Show(const std::vector<std::unique_ptr<Report>>& reports);

private:
    bool hasRows() const { return m_records && !m_records->isEmpty(); }
    ReportHeader header() const;
    ReportJob made() const;
    ReportJob shown();

    const ReportClass& m_class;
    std::optional<ReportRecordset> m_records;
    ReportParameters m_values;
    std::function<bool()> m_pause;
    QString m_about;
    std::optional<ReportJob> m_job; // once made
};

enum class PrintTo { Preview, Printer };

// Prints or shows the rows of a report class; that there are none is told.
void sendReport(const QString& reportClass, const ReportRecordset& records, PrintTo to);
