#include "master/MasterDraft.h"

#include "base/AppError.h"
#include "base/Application.h"
#include "base/Numbers.h"
#include "base/Text.h"
#include "base/basMessage.h"
#include "composition/CompositionName.h"
#include "composition/ItemRules.h"
#include "composition/LineRules.h"
#include "db/AskingOutside.h"
#include "master/MasterComposition.h"
#include "master/MasterManagers.h"

namespace {

// The rows of a master estimate.
struct StoredMaster {
    clsMstEstimate header;
    MasterRows rows;

    bool read(const QString& ProductId) {
        if (!gMstEstimateManager.GetData(ProductId, header)) return false;
        rows = readMasterRows(ProductId);
        return true;
    }

    QString text() const {
        return QStringList{gMstEstimateManager.rowText(header), gMstItemManager.rowTexts(rows.items),
                           gMstMakeElmtManager.rowTexts(rows.make), gMstCmpltElmtManager.rowTexts(rows.parts)}
            .join(u'\x1D');
    }
};

// The checks and the save of one draft, step by step. A step that refuses has told it and says what it came to.
class Saver {
public:
    Saver(Connection& connection, MasterDraft draft, const IsCodeUsed& isUsed)
        : m_connection(connection), m_draft(std::move(draft)), m_isUsed(isUsed) {}

    MasterSave run() {
        m_connection.lockForWriting(gMstEstimateManager.table()); // so that nobody stores it between look and write
        using Step = MasterSave (Saver::*)();
        for (const Step step : {&Saver::checkTexts, &Saver::checkStored, &Saver::checkCode, &Saver::checkUse,
                                &Saver::checkLines, &Saver::checkRival})
            if (const MasterSave came = (this->*step)(); came != MasterSave::Saved) return came;
        takeAmounts();
        write();
        return MasterSave::Saved;
    }

    const MasterDraft& draft() const { return m_draft; }

private:
    clsMstEstimate& master() { return m_draft.master; }

    static MasterSave refuse(int code, const QString& text, MasterSave came) {
        ShowMessage(code, text);
        return came;
    }

    MasterSave checkTexts() {
        for (QString* text : {&master().ProductCd, &master().ProductNm}) *text = Text::rightTrimmed(*text);
        if (master().ProductCd.isEmpty()) return refuse(Message::EnterValue, u"製品コード"_qs, MasterSave::WrongCode);
        if (master().ProductNm.isEmpty()) return refuse(Message::EnterValue, u"製品名称"_qs, MasterSave::WrongName);
        return MasterSave::Saved;
    }

    MasterSave checkStored() {
        if (master().ProductId.isEmpty() || m_stored.read(master().ProductId)) return MasterSave::Saved;
        return refuse(Message::Warning,
                      u"このマスタ見積は他の端末で削除されています。\n"
                      u"もう一度「反映」を押すと、新しいマスタ見積として登録します。"_qs,
                      MasterSave::Gone);
    }

    bool isCodeNew() const { return m_draft.master.ProductCd != m_stored.header.ProductCd; }

    // Also of a code that stays: what is stored under it would be written over.
    MasterSave checkCode() {
        QList<clsMstEstimate> others;
        gMstEstimateManager.GetList(others, gMstEstimateManager.equal(&clsMstEstimate::ProductCd, master().ProductCd),
                                    gMstEstimateManager.sorted({&clsMstEstimate::ProductCd}));
        for (const clsMstEstimate& other : others)
            if (other.ProductId != master().ProductId)
                return refuse(Message::Duplicate, u"製品コード"_qs, MasterSave::WrongCode);
        return MasterSave::Saved;
    }

    MasterSave checkUse() {
        const QString code = m_stored.header.ProductCd;
        if (!isCodeNew() || code.isEmpty() || !m_isUsed(code)) return MasterSave::Saved;
        const qint16 answer = ShowMessage(Message::QuestionPlain,
                                          u"変更前の製品コードは顧客見積に登録されています。変更を反映しますか？"_qs);
        return answer == AnswerYes ? MasterSave::Saved : MasterSave::Refused;
    }

    MasterSave checkLines() {
        m_draft.composition.dropUnusableLines();
        if (m_draft.composition.hasLines()) return MasterSave::Saved;
        return refuse(Message::NotSet, u"見積明細(基本・製作要素／完成要素)"_qs, MasterSave::Refused);
    }

    // Another machine may have stored it since it was loaded. The time of its save alone would not tell two saves of
    // one second apart. A yes holds for the rows that it was given for.
    MasterSave checkRival() {
        if (master().ProductId.isEmpty()) return MasterSave::Saved;
        const QString rows = m_stored.text();
        if (rows == m_draft.storedRows) return MasterSave::Saved;
        const int answer = AskingOutside::ask(u"overwrite "_qs + rows, [] {
            return ShowMessage(Message::QuestionNo, u"他の端末で更新されています。上書きしますか？"_qs);
        });
        return answer == AnswerYes ? MasterSave::Saved : MasterSave::Refused;
    }

    void takeAmounts() {
        const MasterTotals totals = m_draft.amounts().totals;
        master().PriceSmall = QString::number(totals.small - totals.tax);
        master().PriceMiddle = QString::number(totals.middle - totals.tax);
        master().PriceBig = QString::number(totals.big - totals.tax);
    }

    void write() {
        master().UpdUserNo = QString::number(gUserNo);
        gMstEstimateManager.SaveData(master());
        const QString id = master().ProductId;
        const MasterRows rows = masterRows(m_draft.composition, id);
        gMstItemManager.SaveData(id, rows.items);
        gMstMakeElmtManager.SaveData(id, rows.make);
        gMstCmpltElmtManager.SaveData(id, rows.parts);
    }

    Connection& m_connection;
    MasterDraft m_draft;
    const IsCodeUsed& m_isUsed;
    StoredMaster m_stored; // empty for a new one
};

} // namespace

MasterAmounts MasterDraft::amounts() const {
    MasterAmounts amounts;
    amounts.completeParts = totalOf(composition.column(&ComposedItem::parts, PartsLine::Price));
    QList<qint32> beforeTax;
    for (qsizetype tier = 0; tier < masterTiers().size(); ++tier) {
        amounts.makeElements = totalOf(composition.column(&ComposedItem::make, makeRules().amount(tier)));
        beforeTax << ToInt(double(amounts.makeElements) + amounts.completeParts);
    }
    amounts.totals = masterTotals(beforeTax.at(0), beforeTax.at(1), beforeTax.at(2), taxRate);
    return amounts;
}

QString MasterDraft::proposedName() const {
    static const NameRules rules{{}, {}, true, false};
    return automaticName(composition, rules);
}

void MasterDraft::becomeNew() {
    master.ProductId.clear();
    master.UpdDate.clear();
    storedRows.clear();
}

void MasterDraft::takeIdentity(const MasterDraft&, const MasterDraft& after) {
    for (const auto member : {&clsMstEstimate::ProductId, &clsMstEstimate::AddDate, &clsMstEstimate::UpdDate})
        master.*member = after.master.*member;
    storedRows = after.storedRows;
}

MasterDraft newMaster() {
    MasterDraft draft;
    draft.master.PriceSedYear = gPriceYear;
    draft.taxRate = masterTaxRate();
    return draft;
}

bool loadMaster(const QString& ProductId, MasterDraft& draft) {
    StoredMaster read;
    if (!read.read(ProductId)) return false;
    MasterDraft stored;
    stored.master = read.header;
    stored.storedRows = read.text();
    stored.taxRate = masterTaxRate();
    stored.composition = composed(read.rows);
    for (int row = 1; row <= stored.composition.items().size(); ++row) {
        Cells& cells = stored.composition.item(row).cells;
        cells[ItemRules::RowId] = ItemRules::idOf(cells);
    }
    draft = stored;
    return true;
}

MasterSave saveMaster(Connection& connection, MasterDraft& draft, const IsCodeUsed& isUsed) {
    DraftSave::settle(connection, draft);
    MasterSave came = MasterSave::Refused;
    DraftSave::run<MasterDraft>(connection, draft, [&](MasterDraft& saved) {
        Saver saver(connection, saved, isUsed);
        came = saver.run();
        return came == MasterSave::Saved && loadMaster(saver.draft().master.ProductId, saved);
    });
    return came;
}

void deleteMaster(Connection& connection, const QString& ProductId, const std::optional<QString>& UpdDate) {
    Transaction transaction(connection);
    connection.lockForWriting(gMstEstimateManager.table()); // a save under way ends first, with all its rows
    clsMstEstimate stored;
    if (UpdDate && gMstEstimateManager.GetData(ProductId, stored) && stored.UpdDate != *UpdDate)
        throw AppError(
            u"このマスタ見積は他の端末で更新されています。\n開き直して内容を確かめてから削除してください。"_qs,
            u"MasterDraft"_qs);
    gMstMakeElmtManager.DeleteData(ProductId);
    gMstCmpltElmtManager.DeleteData(ProductId);
    gMstItemManager.DeleteData(ProductId);
    gMstEstimateManager.DeleteData(ProductId);
    transaction.commit();
}
