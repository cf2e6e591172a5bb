#pragma once

#include <QString>
#include <QStringList>

// One branch of a person. It is the key of the customers' table and the owner in those that hang on a branch.
struct CustomerKey {
    QString CustId, CustSubId;

    operator QStringList() const { return {CustId, CustSubId}; }
};
