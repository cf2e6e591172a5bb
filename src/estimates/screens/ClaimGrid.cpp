#include "estimates/screens/ClaimGrid.h"

#include "base/Numbers.h"
#include "base/basMessage.h"
#include "reference/ReferenceManagers.h"
#include "ui/Grid.h"

namespace {

const QString byCustomer = u"氏名"_qs;
const QString byInsured = u"被保険者名"_qs;
const QString byHand = u"直接入力"_qs;

bool isLaw(const QString& number) { return Val(number) != 0; }

} // namespace

ClaimGrid::ClaimGrid(Grid* grid) : QObject(grid), m_grid(grid) {
    m_grid->editStarting = [this](int row, int column) { return offerChoices(row, column); };
    m_grid->aside = [this](int row, int column) { return column == ClaimNm && isNew(row) ? u"新規"_qs : QString(); };
    connect(m_grid, &Grid::cellEdited, this, [this](int row, int column) {
        guarded([&] {
            takeEdit(row, column);
            emit changed();
        });
    });
}

void ClaimGrid::showRows(const QList<ClaimRow>& rows) {
    m_grid->setRows(claimRowCount);
    for (int i = 0; i < qMin<int>(claimRowCount, rows.size()); ++i) {
        const ClaimRow& row = rows.at(i);
        m_grid->setRowValues(i + 1, {row.InsNo, row.InsNm, row.ClaimNo, row.ClaimCd, row.ClaimNm});
    }
    emit changed();
}

QList<ClaimRow> ClaimGrid::rows() const {
    QList<ClaimRow> result;
    for (int row = 1; row <= m_grid->rows(); ++row) {
        const QStringList values = m_grid->rowValues(row);
        ClaimRow claim;
        claim.InsNo = values.at(InsNo);
        claim.InsNm = values.at(InsNm);
        claim.ClaimNo = values.at(ClaimNo);
        claim.ClaimCd = values.at(ClaimCd);
        claim.ClaimNm = values.at(ClaimNm);
        result << claim;
    }
    return result;
}

bool ClaimGrid::isPrivate(int row) const {
    const QString law = m_grid->value(row, InsNm);
    return law == u"自費" || law == u"自己負担";
}

// A code that no payer has is registered by the save.
bool ClaimGrid::isNew(int row) const {
    return !isPrivate(row) && !m_grid->value(row, ClaimCd).isEmpty() && m_grid->value(row, ClaimNo).isEmpty();
}

// The payers registered for the row's law, the last used first; without a law all of them.
QList<clsClaim> ClaimGrid::payersOf(int row) const {
    const QString law = m_grid->value(row, InsNo);
    if (isLaw(law)) return gInsClaimManager.payersOf(law);
    QList<clsClaim> payers;
    gClaimManager.GetList(payers, gClaimManager.inUse(), bySeq);
    return payers;
}

bool ClaimGrid::offerChoices(int row, int column) {
    GridEntries entries;
    if (column == InsNm) {
        QList<clsIns> laws;
        gInsManager.GetList(laws, gInsManager.inUse(), bySeq);
        for (const clsIns& law : laws) entries << GridEntry{law.InsNm, law.InsNm, {}};
    } else if (column == ClaimNm && isPrivate(row)) {
        for (const QString& text : {byCustomer, byInsured, byHand}) entries << GridEntry{text, text, {}};
    } else if (!isPrivate(row)) {
        const bool byCode = column == ClaimCd;
        for (const clsClaim& payer : payersOf(row))
            entries << GridEntry{byCode ? payer.ClaimCd : payer.ClaimNm, byCode ? payer.ClaimCd : payer.ClaimNm,
                                 byCode ? payer.ClaimNm : payer.ClaimCd};
    }
    m_grid->setEntries(column, entries);
    return true;
}

void ClaimGrid::takeEdit(int row, int column) {
    switch (column) {
    case InsNm:
        return takeLaw(row);
    case ClaimCd:
        return takeCode(row);
    case ClaimNm:
        return takeName(row);
    default:
        return;
    }
}

void ClaimGrid::takeLaw(int row) {
    const QString name = m_grid->value(row, InsNm);
    if (name.isEmpty()) {
        m_grid->clearRow(row);
        return;
    }
    m_grid->setValue(row, InsNo, gInsManager.numberOf(name));
    // The patient pays: the payer of another law has no part in it.
    if (isPrivate(row) && !m_grid->value(row, ClaimNo).isEmpty()) setPayer(row, {});
}

void ClaimGrid::setPayer(int row, const clsClaim& claim) {
    m_grid->setValue(row, ClaimNo, claim.ClaimNo);
    m_grid->setValue(row, ClaimCd, claim.ClaimCd);
    m_grid->setValue(row, ClaimNm, claim.ClaimNm);
}

// A known code brings its payer; a new one waits for its name.
void ClaimGrid::takeCode(int row) {
    if (isPrivate(row)) return m_grid->setValue(row, ClaimCd, {});
    const QString code = Text::rightTrimmed(m_grid->value(row, ClaimCd));
    QList<clsClaim> found;
    if (!code.isEmpty())
        gClaimManager.GetList(found, SqlAllOf({gClaimManager.equal(&clsClaim::ClaimCd, code), gClaimManager.inUse()}),
                              bySeq);
    if (!found.isEmpty())
        setPayer(row, found.first());
    else
        m_grid->setValue(row, ClaimNo, {});
}

void ClaimGrid::takeName(int row) {
    const QString name = m_grid->value(row, ClaimNm);
    if (isPrivate(row)) {
        clsClaim person;
        person.ClaimNm = name == byCustomer ? customerName() : name == byInsured ? insuredName() : name;
        if (name == byHand) person.ClaimNm.clear();
        setPayer(row, person);
        return;
    }
    for (const clsClaim& payer : payersOf(row))
        if (payer.ClaimNm == name) return setPayer(row, payer);
    // A name of its own under no code belongs to no registered payer.
    if (m_grid->value(row, ClaimCd).isEmpty()) m_grid->setValue(row, ClaimNo, {});
}
