#include "estimates/screens/MasterCommands.h"

#include "base/basMessage.h"
#include "db/clsDbManager.h"
#include "estimates/MasterTaking.h"
#include "master/MasterManagers.h"
#include "master/screens/frmMstEstimateDialog.h"
#include "ui/SelectFrom.h"

namespace MasterCommands {

namespace {

std::optional<clsMstEstimate> chooseFrom(QWidget* parent, const QString& ProductCd, TellMissing tell) {
    const SqlColumn code = gMstEstimateManager.column(&clsMstEstimate::ProductCd);
    const auto chosen =
        SelectFrom(parent, u"製作マスタ"_qs, gMstEstimateManager.GetSelectList(SqlStartsWith(code, ProductCd), code),
                   {u"製品ID"_qs}, tell);
    clsMstEstimate master;
    if (!chosen || !gMstEstimateManager.GetData(chosen->value(u"製品ID"_qs), master)) return std::nullopt;
    return master;
}

// The code and name that the operator confirmed; false when it was given up.
bool askNames(QWidget* parent, clsMstEstimate& master) {
    bool confirmed = false;
    openScreen<frmMstEstimateDialog>(
        parent,
        [&](frmMstEstimateDialog& dialog) {
            dialog.ProductCd = master.ProductCd;
            dialog.ProductNm = master.ProductNm;
        },
        [&](frmMstEstimateDialog& dialog) {
            confirmed = dialog.Updated;
            master.ProductCd = dialog.ProductCd;
            master.ProductNm = dialog.ProductNm;
        });
    return confirmed;
}

} // namespace

std::optional<clsMstEstimate> ofTypedCode(QWidget* parent, const QString& ProductCd) {
    clsMstEstimate master;
    if (masterOfCode(ProductCd, master)) return master;
    return chooseFrom(parent, ProductCd, TellMissing::No);
}

std::optional<clsMstEstimate> choose(QWidget* parent, const QString& ProductCd) {
    return chooseFrom(parent, ProductCd, TellMissing::Yes);
}

QString nameOf(const QString& ProductCd) {
    clsMstEstimate master;
    return !ProductCd.isEmpty() && masterOfCode(ProductCd, master) ? master.ProductNm : QString();
}

void store(QWidget* parent, const EstimateDraft& draft) {
    if (!draft.composition.hasLines()) {
        ShowMessage(Message::Missing, u"見積明細(基本・製作要素／完成要素)"_qs);
        return;
    }
    clsMstEstimate names;
    names.ProductCd = draft.estimate.ProductCd;
    names.ProductNm = draft.estimate.EstNm;
    if (!askNames(parent, names)) return;
    bool incomplete = false;
    MasterDraft master = masterOf(draft, incomplete);
    // Another machine may take the code while the dialog closes; then another one is asked for.
    MasterSave came = MasterSave::WrongCode;
    do {
        master.master.ProductCd = names.ProductCd;
        master.master.ProductNm = names.ProductNm;
        came = saveMaster(gDbManager.Connection(), master, [](const QString&) { return false; });
    } while (came == MasterSave::WrongCode && askNames(parent, names));
    if (came != MasterSave::Saved) return;
    ShowMessage(Message::Information, incomplete
                                          ? u"登録しました。\n価格マスタにない明細、価格が複数ある明細がありました。"
                                            u"ログ内容をご確認ください。"_qs
                                          : u"登録しました。"_qs);
}

} // namespace MasterCommands
