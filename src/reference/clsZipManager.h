#pragma once

#include "db/TableManager.h"
#include "reference/PostalFiles.h"
#include "reference/ReferenceRecords.h"

#include <functional>

// The postal code book `郵便番号簿`.
class clsZipManager : public TableManager<clsZip> {
public:
    clsZipManager();

    qint64 GetCount() { return count(); }
    // The first row that fits the arguments that are not empty: the code as a whole, the others as parts.
    bool GetZipData(clsZip& zip, const QString& strZip7, const QString& strPref, const QString& strCity,
                    const QString& strAddr1);
    // The rows whose code begins with a text, in the order of their codes.
    QList<clsZip> startingWith(const QString& zip);
    // Rows for the selection screen (郵便番号, 都道府県名, 市区町村名, 住所): a prefecture and the start of an address.
    // Says so when nothing is found.
    Recordset GetSelectListFromAddr(const QString& inPref, const QString& inAdr, const SqlTerm& sort);
    // The same for the start of a code.
    Recordset GetSelectListFromZip(const QString& zip, const SqlTerm& sort);
    // Replaces the book by that of a delivered file and makes its indexes anew. The transaction is the caller's.
    void ImportCsv(const QString& path);
    // The same with published rows. Codes of offices alone take the place of their own kind in the book. `progress` is
    // told how many rows are in.
    void ImportPublished(const PostalFiles::Book& book, const std::function<void(qint64 rows)>& progress = {});

private:
    void rebuild(const std::function<void()>& fill);
    void removeCodes(const QList<clsZip>& rows);
    Recordset selectList(const SqlTerm& where, const SqlTerm& sort);
};

extern clsZipManager gZipManager;
