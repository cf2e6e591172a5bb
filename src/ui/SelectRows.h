#pragma once

#include <QHash>
#include <QList>
#include <QStringList>

#include <functional>

// A plain table to choose from: column words and rows of text.
struct SelectRows {
    QStringList columns;
    QList<QStringList> rows;
};

// A table too long to be read ahead of the choice; its rows are fetched as they are looked at.
struct LongTable {
    QStringList columns;
    QList<int> widths; // of the columns, in characters
    // The statement of the keys of the rows that contain a text, in the order of the list; empty: of all rows.
    std::function<QString(const QString& sought)> keys;
    std::function<QHash<QString, QStringList>(const QStringList& keys)> fetch;
};

// The fields of a chosen row by their column words.
using SelectedRow = QHash<QString, QString>;
