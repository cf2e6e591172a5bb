#include "customers/screens/PersonFields.h"

#include "base/Dates.h"
#include "base/Seams.h"
#include "base/basCommon.h"
#include "base/basMessage.h"
#include "db/clsAssistManager.h"
#include "reference/clsZipManager.h"
#include "ui/ChoiceBox.h"
#include "ui/DateField.h"
#include "ui/MemoField.h"
#include "ui/SelectFrom.h"
#include "ui/TextField.h"
#include "ui/basControlUtil.h"

#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QScopedValueRollback>

#include <algorithm>

namespace {

constexpr int prefLength = 8;
constexpr int cityLength = 12;
constexpr int wholeZip = 8; // 123-4567

} // namespace

PersonFields::PersonFields(const PersonControls& controls, QWidget* form)
    : QObject(form), m_fields(controls), m_form(form) {
    m_fields.name1->setReadingField(m_fields.kana1);
    m_fields.name2->setReadingField(m_fields.kana2);
    m_fields.pref->setMaxLength(prefLength);
    m_fields.city->setMaxLength(cityLength);
    for (TextField* part : {m_fields.name1, m_fields.name2})
        connect(part, &TextField::valueChanged, this, &PersonFields::followName);
    for (QRadioButton* choice : {m_fields.sameName, m_fields.ownName})
        connect(choice, &QRadioButton::toggled, this, &PersonFields::followName);
    connect(m_fields.familyType, &ChoiceBox::valueChanged, this, [this] {
        if (!m_showing) m_unlistedFamilyType.clear();
    });
    connect(m_fields.birth, &DateField::valueChanged, this, &PersonFields::showAge);
    connect(m_fields.pref, &ChoiceBox::valueChanged, this, [this] { guarded([this] { refillCities(); }); });
    connect(m_fields.zip, &TextField::valueSettled, this, [this] { guarded([this] { takeZip(); }); });
    connect(m_fields.setZip, &QPushButton::clicked, this, [this] { guarded([this] { chooseAddress(); }); });
}

void PersonFields::fillLists() {
    FillPrefList(m_fields.pref);
    FillCityList(m_fields.city, {});
    FillAssistList(m_fields.sex, AssistGroup::Sex);
    FillAssistValueList(m_fields.familyType, AssistGroup::FamilyType);
}

void PersonFields::show(const clsCustomer& customer) {
    const QScopedValueRollback showing(m_showing, true);
    const QString joined = JoinWithSpace(customer.CustNm1, customer.CustNm2);
    const bool isSelf = customer.Insured == joined; // a new person, too, until told otherwise
    (isSelf ? m_fields.sameName : m_fields.ownName)->setChecked(true);
    m_fields.name1->setValue(customer.CustNm1);
    m_fields.name2->setValue(customer.CustNm2);
    m_fields.kana1->setValue(customer.CustKn1);
    m_fields.kana2->setValue(customer.CustKn2);
    m_fields.birth->setValue(customer.Birth);
    m_fields.sex->setText(customer.Sex);
    const bool isListed = m_fields.familyType->chooseByData(customer.FamilyType);
    if (!isListed) m_fields.familyType->clearChoice();
    m_unlistedFamilyType = isListed ? QString() : customer.FamilyType;
    m_fields.insured->setValue(customer.Insured);
    m_fields.zip->setValue(customer.Zip);
    m_fields.pref->setText(customer.Pref);
    m_fields.city->setText(customer.City);
    m_fields.addr1->setValue(customer.Addr1);
    m_fields.addr2->setValue(customer.Addr2);
    m_fields.tel->setValue(customer.Tel);
    m_fields.fax->setValue(customer.Fax);
    m_fields.priceType->setText(customer.PriceType);
    m_fields.memo->setValue(customer.Memo);
    showAge();
}

void PersonFields::collect(clsCustomer& customer) const {
    customer.CustNm1 = m_fields.name1->value();
    customer.CustNm2 = m_fields.name2->value();
    customer.CustKn1 = m_fields.kana1->value();
    customer.CustKn2 = m_fields.kana2->value();
    customer.Birth = m_fields.birth->value();
    customer.Sex = m_fields.sex->text();
    const QString familyType = m_fields.familyType->data();
    customer.FamilyType = familyType.isEmpty() ? m_unlistedFamilyType : familyType;
    customer.Insured = m_fields.insured->value();
    customer.Zip = m_fields.zip->value();
    customer.Pref = m_fields.pref->text();
    customer.City = m_fields.city->text();
    customer.Addr1 = m_fields.addr1->value();
    customer.Addr2 = m_fields.addr2->value();
    customer.Tel = m_fields.tel->value();
    customer.Fax = m_fields.fax->value();
    customer.Memo = m_fields.memo->value();
}

QString PersonFields::name() const { return JoinWithSpace(m_fields.name1->value(), m_fields.name2->value()); }

// --- person ---

void PersonFields::followName() {
    const bool same = m_fields.sameName->isChecked();
    m_fields.insured->setReadOnly(same);
    m_fields.insured->setFocusPolicy(same ? Qt::TabFocus : Qt::StrongFocus); // a click leaves the hands where they are
    if (same) m_fields.insured->setValue(name());
    emit nameChanged();
}

void PersonFields::showAge() {
    const QString birth = m_fields.birth->value();
    m_fields.era->setText(FormatEraDate(birth, u"ggge年m月d日"_qs));
    m_fields.age->setText(birth.isEmpty() ? QString() : QString::number(CalcAge(birth, dateText(currentDate()))));
}

// --- address ---

// The city that stands there stays, also when the prefecture's list lacks it.
void PersonFields::refillCities() {
    const QString city = m_fields.city->text();
    FillCityList(m_fields.city, m_fields.pref->text());
    m_fields.city->setText(city);
}

void PersonFields::fillAddress(const QString& pref, const QString& city, const QString& town) {
    m_fields.pref->setText(pref);
    m_fields.city->setText(city);
    m_fields.addr1->fillIn(town);
}

void PersonFields::takeZip() {
    if (m_showing) return;
    const QString zip = FormatZip(m_fields.zip->value());
    if (zip != m_fields.zip->value()) return m_fields.zip->setValue(zip); // which settles once more
    if (zip.isEmpty()) return;
    const QList<clsZip> found = gZipManager.startingWith(zip);
    if (found.size() == 1) return fillAddress(found.first().Pref, found.first().City, found.first().Town);
    if (found.isEmpty() || zip.size() != wholeZip) return;
    // One code of several places: the operator says which.
    const auto chosen =
        SelectFrom(m_form, u"郵便番号"_qs, gZipManager.GetSelectListFromZip(zip, gZipManager.column(&clsZip::Pref)));
    if (chosen)
        fillAddress(chosen->value(u"都道府県名"_qs), chosen->value(u"市区町村名"_qs), chosen->value(u"住所"_qs));
}

// The postal code book knows towns, not their houses: the number is left out of the search and kept in the address.
void PersonFields::chooseAddress() {
    const QString typed = m_fields.addr1->value();
    const auto number = std::find_if(typed.begin(), typed.end(), [](QChar sign) { return sign.isDigit(); });
    const QString house = typed.mid(number - typed.begin());
    const QString address = m_fields.city->text() + typed.chopped(house.size()).trimmed();
    Recordset places =
        gZipManager.GetSelectListFromAddr(m_fields.pref->text(), address, gZipManager.column(&clsZip::Zip));
    const auto chosen = SelectFrom(m_form, u"郵便番号"_qs, std::move(places), {}, TellMissing::No);
    if (!chosen) return;
    {
        // The code comes from the address, not the other way round.
        const QScopedValueRollback showing(m_showing, true);
        m_fields.zip->setValue(chosen->value(u"郵便番号"_qs));
    }
    fillAddress(chosen->value(u"都道府県名"_qs), chosen->value(u"市区町村名"_qs), chosen->value(u"住所"_qs) + house);
}
