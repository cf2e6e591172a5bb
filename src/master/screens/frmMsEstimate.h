#pragma once

#include "master/MasterDraft.h"
#include "reports/engine/Report.h"
#include "ui/EditScreen.h"

namespace Ui {
class frmMsEstimate;
}

class CompositionUndo;

// The editor of one master estimate: code and name, its items with their lines, and the amounts for all age tiers.
// `ProductId` is the stored one to load; afterwards it is the one that was stored last.
class frmMsEstimate : public EditScreen {
    Q_OBJECT

public:
    explicit frmMsEstimate(QWidget* parent = nullptr);
    ~frmMsEstimate() override;

    QString ProductId;

protected:
    void load() override;
    QWidget* firstField() const override;
    void showStored() override;
    bool save() override;
    bool removeStored() override;
    bool keepsDrafts() const override { return true; }
    KeptWork workToKeep() const override;
    void showKept(const QJsonObject& content) override;

private:
    enum Page { Items, MakeElements, Parts };

    void connectPages();
    void connectCommands();
    void showDraft(const MasterDraft& draft);
    void showAmounts();
    void enterPage(int page);
    MasterDraft collect() const;

    // Saves what stands on the screen. None when it was refused, which was told.
    std::optional<MasterDraft> store();
    void execute();
    // What was stored is gone; the next save adds it anew.
    void startAnew();
    void print(PrintTo to);

    const std::unique_ptr<Ui::frmMsEstimate> ui;
    CompositionUndo* m_undo = nullptr;
    MasterDraft m_draft; // as loaded or saved last, with the composition as it is now
};
