#pragma once

#include "base/KeptDrafts.h"
#include "ui/Screen.h"

namespace Ui {
class frmMenu;
}

class QPushButton;

// The main menu: five groups of commands, one of them in view, and the commands that are always there. It alone is
// modeless; when it closes the program ends.
class frmMenu : public Screen {
    Q_OBJECT

public:
    explicit frmMenu(QWidget* parent = nullptr);
    ~frmMenu() override;

    // Escape does not end a day's work.
    void reject() override {}

protected:
    void load() override;
    bool queryUnload() override;

private:
    void enterGroup(int index);
    void showGroup(int index);
    void connectOpeners();
    void showRecent();
    void openRecent();
    void backUp();
    void showBackupAge();
    void tellFailedBackup();
    void showDrafts();
    void withNewestDraft(const std::function<void(const KeptDraft&)>& work);

    std::unique_ptr<Ui::frmMenu> ui;
    QList<QPushButton*> m_groupButtons;
    QList<QWidget*> m_groupFrames;
    QList<KeptDraft> m_drafts; // the newest first
};
