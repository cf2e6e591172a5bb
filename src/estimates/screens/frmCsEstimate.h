#pragma once

#include "estimates/EstimateDraft.h"
#include "estimates/screens/EstimatePrinting.h"
#include "master/MasterRecords.h"
#include "ui/EditScreen.h"

#include <optional>

namespace Ui {
class frmCsEstimate;
}

class AmountsBlock;
class CompositionUndo;
class EstimateMarks;
class LinePage;

// The whole work on one estimate: who it is for, the product with its items and lines, the dates, the amounts, the
// claims and the papers. `EstId` is the stored estimate to load, empty for a new one.
class frmCsEstimate : public EditScreen {
    Q_OBJECT

public:
    explicit frmCsEstimate(QWidget* parent = nullptr);
    ~frmCsEstimate() override;

    QString EstId;

    // Takes up another stored estimate in a mode, after the question about unsaved work. False when the operator stays.
    bool openStored(const QString& id, qint16 mode);

protected:
    void fillLists() override;
    QWidget* firstField() const override;
    void showStored() override;
    bool save() override { return store().has_value(); }
    bool removeStored() override;
    bool keepsDrafts() const override { return true; }
    KeptWork workToKeep() const override;
    void showKept(const QJsonObject& content) override;

private:
    enum Page { Basic, Items, MakeElements, Parts, Schedule, Print };

    void connectPages();
    void connectMirrors();
    void connectCommands();
    void noteClaims();

    // --- what stands on the screen ---
    void showDraft(const EstimateDraft& draft);
    void showEstimate(const EstimateDraft& draft);
    void showHeader();
    void showAmounts();
    void showRemarks();
    void enterPage(int page);
    void goToGrid(int page);
    // The estimate as it stands on the screen, without lines that no item carries any more.
    EstimateDraft collect() const;
    QStringList tiers() const;
    void takeBackAdvance();
    bool keepsAmounts(const EstimateDraft& draft);

    // What is stored afterwards, also when more goes wrong; nothing when the save was refused.
    std::optional<EstimateDraft> store();

    // --- commands ---
    void execute();
    void goToMissingLines();
    void clearAll();
    void clearPerson();
    void clearEstimate();
    void takeCurrentPrices();
    void receiveAgain();
    void markUncollected();
    void chooseEstimate();
    void proposeName();
    void takeMaster(const clsMstEstimate& master);
    void RepriceAll();

    // --- printing ---
    void printTicked(EstimatePrinting::To to);
    void printReceipt();
    void printOpinion(EstimatePrinting::To to);
    // Brings the amount received of the first claim to what is expected; true when that is the grand total.
    bool setReceiptAmount();
    bool confirmPrinting(EstimatePrinting::To to);

    std::unique_ptr<Ui::frmCsEstimate> ui;
    EstimateDraft m_draft; // as loaded or saved last, with the composition and the amounts as they are now
    std::unique_ptr<EstimateMarks> m_marks;
    CompositionUndo* m_undo = nullptr;
    QString m_receiptSet;         // the amount received that printing has set
    bool m_warnedUnsaved = false; // within one printing command
    bool m_suppressed = false;    // while the program refills the screen
};
