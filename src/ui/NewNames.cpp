#include "ui/NewNames.h"

#include "base/Text.h"
#include "base/basMessage.h"
#include "reference/ReferenceManagers.h"
#include "ui/ChoiceBox.h"
#include "ui/FieldMark.h"
#include "ui/TextField.h"

#include <QLineEdit>

namespace {

template <class Record> bool isUnknown(CodedManager<Record>& manager, QString Record::*member, const QString& text) {
    const QString sought = Text::rightTrimmed(text); // as it is stored
    if (sought.isEmpty()) return false;
    QList<Record> found;
    manager.GetList(found, manager.equal(member, sought), bySeq);
    return found.isEmpty();
}

void mark(QWidget* field, bool isNew) { FieldMark::set(field, isNew ? u"新規"_qs : QString()); }

// Once the name is whole: an entry is known, and a text under the hands is not looked up letter by letter.
template <class Record>
std::function<void()> watch(ChoiceBox* box, CodedManager<Record>& manager, QString Record::*name) {
    const auto look = [=, &manager] {
        guarded([&] { mark(box, box->data().isEmpty() && isUnknown(manager, name, box->text())); });
    };
    QObject::connect(box->lineEdit(), &QLineEdit::editingFinished, box, look);
    QObject::connect(box, &ChoiceBox::valueChanged, box, [=] {
        if (!box->data().isEmpty()) mark(box, false);
    });
    return look;
}

} // namespace

void NewNames::watchDoctor(ChoiceBox* doctor) { m_looks << watch(doctor, gDoctorManager, &clsDoctor::DoctorNm); }

void NewNames::watchProducer(ChoiceBox* producer) {
    m_looks << watch(producer, gProducerManager, &clsProducer::ProducerNm);
}

void NewNames::watchOrder(TextField* code, TextField* name) {
    const auto look = [=] {
        guarded([&] { mark(name, isUnknown(gOrderManager, &clsOrder::OrderCd, code->value())); });
    };
    QObject::connect(code, &TextField::valueSettled, name, look);
    m_looks << look;
}

void NewNames::look() const {
    for (const auto& look : m_looks) look();
}
