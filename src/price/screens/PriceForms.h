#pragma once

#include <QList>
#include <QString>

// How a column of a price table is listed and edited.
struct PriceField {
    enum Kind {
        Choice,      // a list that narrows those behind it, any text is taken; such fields filter the list as well
        Assist,      // one of 補助設定, by its number
        AssistValue, // one of 補助設定, by its 設定値
        Whole,
        Price,
        Words,
    };

    QString control, label, column;
    Kind kind;
    int width;     // in the list, half-width characters
    int group = 0; // of 補助設定
    // Whether a row of that 種目 cannot do without it; none: every row can.
    bool (*required)(const QString& item) = nullptr;
    bool besideLast = false;
};

// One price table: its list and its edit screen.
struct PriceForm {
    QString table;   // of the database
    QString screen;  // the name of the edit screen
    QString title;   // of its window
    QString subject; // in questions
    QList<PriceField> fields;

    QList<PriceField> choices() const;
};

// In the order of the tabs: 種目, 基本, 加算, 要素, 部品.
const QList<PriceForm>& priceForms();
const PriceForm& priceForm(const QString& table);
