#pragma once

#include <QHash>
#include <QList>
#include <QStringList>

// A plain table to choose from: column words and rows of text.
struct SelectRows {
    QStringList columns;
    QList<QStringList> rows;
};

// The fields of a chosen row by their column words.
using SelectedRow = QHash<QString, QString>;
