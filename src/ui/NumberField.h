#pragma once

#include "ui/EntryField.h"

// A number, right-aligned. It takes full-width digits; without the focus it shows thousands separators. The value is
// plain text such as "-1234.5", or empty.
class NumberField : public EntryField {
    Q_OBJECT
    Q_PROPERTY(int decimals READ decimals WRITE setDecimals)

public:
    explicit NumberField(QWidget* parent = nullptr);

    // Digits behind the point, 0 for whole numbers alone.
    int decimals() const { return m_decimals; }
    void setDecimals(int decimals);

    QString value() const override;
    QString complaint() const override;

protected:
    std::optional<QString> settled(const QString& typed) const override;
    QString editable(const QString& shown) const override;

private:
    static std::optional<QString> plain(const QString& typed);

    int m_decimals = 0;
};
