#pragma once

#include <QList>

#include <functional>

class ChoiceBox;
class TextField;

// Marks with 「新規」 what a save would register: a name, or the code of a party, that the office does not have yet.
class NewNames {
public:
    void watchDoctor(ChoiceBox* doctor);
    void watchProducer(ChoiceBox* producer);
    // A party is registered by its code; a name alone goes nowhere.
    void watchOrder(TextField* code, TextField* name);

    // After the fields were filled, or what they hold was stored.
    void look() const;

private:
    QList<std::function<void()>> m_looks; // one for each field
};
