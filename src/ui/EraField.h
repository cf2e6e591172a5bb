#pragma once

#include "ui/EntryField.h"

// A date by its era letter (h010401, R6.4.1) on its way to another field, which takes it over when this one is left and
// empties it. The value is "yyyy/mm/dd", or empty.
class EraField : public EntryField {
    Q_OBJECT

public:
    explicit EraField(QWidget* parent = nullptr);

    QString complaint() const override;

protected:
    std::optional<QString> settled(const QString& typed) const override;
    QString valueOfTyped(const QString& typed) const override;
    QString valueOfSet(const QString& value) const override { return valueOfTyped(value); }
};
