#pragma once

#include "base/Numbers.h"
#include "ui/EntryField.h"

// A number, right-aligned. It takes full-width digits; without the focus it shows thousands separators. The value is
// plain text such as "-1234.5", or empty. A value with more decimals than the field takes is shown rounded.
class NumberField : public EntryField {
    Q_OBJECT
    Q_PROPERTY(int decimals READ decimals WRITE setDecimals)

public:
    explicit NumberField(QWidget* parent = nullptr);

    // Digits behind the point, 0 for whole numbers alone.
    int decimals() const { return m_decimals; }
    void setDecimals(int decimals);

    // The largest number that makes sense, and what to call the field where a larger one is told.
    void setLimit(double most, const QString& caption);

    QString complaint() const override;

protected:
    std::optional<QString> settled(const QString& typed) const override;
    QString valueOfTyped(const QString& typed) const override;
    QString valueOfSet(const QString& value) const override { return valueOfTyped(value); }
    QString shownFor(const QString& value) const override;
    QString editable(const QString& shown) const override;

private:
    static std::optional<QString> plain(const QString& typed);
    bool isBeyond(const QString& number) const { return !m_caption.isEmpty() && qAbs(Val(number)) > m_most; }

    int m_decimals = 0;
    double m_most = 0;
    QString m_caption; // of the limit, empty without one
};
