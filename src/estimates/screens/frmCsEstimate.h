#pragma once

#include "estimates/EstimateAmounts.h"
#include "estimates/EstimateDraft.h"
#include "estimates/screens/ElementEditor.h"
#include "estimates/screens/EstimatePrinting.h"
#include "ui/Screen.h"

namespace Ui {
class frmCsEstimate;
}

// The whole work on one order: who it is for, the product with its items and lines, the dates, the amounts, the claims
// and the papers. `EstId` is the stored estimate to load, empty for a new one; `Updated` tells that something was saved
// or deleted.
class frmCsEstimate : public Screen {
    Q_OBJECT

public:
    enum Mode : qint16 { Add = 0, Edit = 1, Delete = 2 };

    explicit frmCsEstimate(QWidget* parent = nullptr);
    ~frmCsEstimate() override;

    QString EstId;
    qint16 EditMode = Add;
    bool Updated = false;

    // Takes up another stored estimate in a mode, after the question about unsaved work. False when the operator stays.
    bool openStored(const QString& id, qint16 mode);

protected:
    void load() override;
    bool queryUnload() override;

private:
    enum Page { Basic, Items, MakeElements, Parts, Schedule, Print };

    void setUpTabKeys();
    void connectPages();
    void connectMirrors();
    void connectCommands();

    // --- mode ---
    void setMode(qint16 mode);
    void showMode();

    // --- what stands on the screen ---
    void showOrder(const EstimateDraft& draft);
    void showNumbers(const EstimateDraft& draft);
    void showStatus(const QString& number);
    void showName();
    EstimateDraft collect();
    bool showStored(const QString& EstId);
    void showEmpty();
    void RecalcAmounts();
    void ShowAmounts(const EstimateAmounts& amounts);
    void insurancesChanged();
    void pageTurned(int page);
    // Drops the lines of items that are gone.
    void dropOrphans();
    QList<Cells> itemCells() const;
    // How much of the estimate part goes: all, all but the people in charge and the discounts, or the dates and claims
    // alone.
    enum class Clearing { Everything, ContentsAndDates, Dates };
    void ClearEstimate(Clearing level);
    bool IsEdited() const;
    void clearEdited();

    // --- commands ---
    bool save();
    void execute();
    void cancel();
    void clearAll();
    void clearPerson();
    void clearEstimate();
    void takeCurrentPrices();
    void receiveAgain();
    void removeEstimate();
    void markUncollected();
    void chooseEstimate();
    void proposeName();
    void RepriceAll();

    // --- printing ---
    void printTicked(EstimatePrinting::To to);
    void printReceipt();
    // Brings the amount received of the first claim to what is expected; true when that is the grand total.
    int firstClaimRow() const;
    bool setReceiptAmount();
    bool confirmPrinting(EstimatePrinting::To to);
    void becomeNewEstimate();

    std::unique_ptr<Ui::frmCsEstimate> ui;
    EstimateDraft m_draft; // as loaded or saved last, with the lines as they are now
    ElementEditor<clsCsMakeElmt>* m_makeEditor = nullptr;
    ElementEditor<clsCsCmpltElmt>* m_partsEditor = nullptr;
    bool m_edited = false;
    bool m_warnedUnsaved = false; // within one printing command
    bool m_mirroring = false;     // while a date is copied into its mirror
    bool m_suppressed = false;    // while the program refills the screen
};
