#pragma once

#include "customers/clsCustomerManager.h"

#include <QObject>

class ChoiceBox;
class DateField;
class MemoField;
class QLabel;
class QPushButton;
class QRadioButton;
class TextField;
class QWidget;

// The controls of a person. Every form that edits a person names them alike, so that they are found by their names.
struct PersonControls {
    TextField *name1, *name2, *kana1, *kana2;
    DateField* birth;
    QLabel *era, *age; // what follows from the birth date
    ChoiceBox *sex, *familyType;
    TextField* insured;
    QRadioButton *sameName, *ownName; // 氏名に同じ, 記入
    TextField* zip;
    QPushButton* setZip;
    ChoiceBox *pref, *city;
    TextField *addr1, *addr2, *tel, *fax;
    QLabel* priceType;
    MemoField* memo;

    template <class Ui> static PersonControls of(const Ui& ui) {
        return {ui.txtName1, ui.txtName2,  ui.txtKana1,      ui.txtKana2,   ui.idtBirth, ui.lblEra,
                ui.lblAge,   ui.cboSex,    ui.cboFamilyType, ui.txtInsured, ui.optIns_0, ui.optIns_1,
                ui.txtZip,   ui.cmdSetZip, ui.cboPref,       ui.cboCity,    ui.txtAddr1, ui.txtAddr2,
                ui.txtTelNo, ui.txtFax,    ui.lblPriceKbn,   ui.txtCsMemo};
    }
};

// What the fields of a person do wherever they stand: a name fills its reading and the insured person, a birth date
// shows era and age, a postal code fills the address and an address finds its postal code.
class PersonFields : public QObject {
    Q_OBJECT

public:
    PersonFields(const PersonControls& controls, QWidget* form);

    // Fills the lists from the managers; once, before anything is shown.
    void fillLists();
    void show(const clsCustomer& customer);
    // Writes what the fields hold; id, numbers, mail address and age tier of the record stay.
    void collect(clsCustomer& customer) const;
    // Both names with an ideographic blank between them.
    QString name() const;

signals:
    void nameChanged();

private:
    void followName();
    void showAge();
    void refillCities();
    void takeZip();
    void chooseAddress();
    void fillAddress(const QString& pref, const QString& city, const QString& town);

    PersonControls m_fields;
    QWidget* m_form;
    QString m_unlistedFamilyType; // of the record, until another one is chosen
    bool m_showing = false;       // while a record, or a code found for an address, is put into the fields
};
