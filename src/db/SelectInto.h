#pragma once

#include <QString>

#include <optional>

// "SELECT * INTO target FROM [;database=file].source WHERE filter": the copy of a table between two database files.
struct SelectInto {
    QString target;
    QString file;
    QString source;
    QString where; // in the system's SQL, empty for all rows

    // Nothing when the statement is another one; an error when it is one that cannot be read.
    static std::optional<SelectInto> parse(const QString& statement);
};
