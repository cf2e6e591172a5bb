#pragma once

#include "operations/SystemProperties.h"
#include "ui/Screen.h"

namespace Ui {
class frmSystem;
}

// Edits the office's own data and all numbered settings, which are saved together.
class frmSystem : public Screen {
    Q_OBJECT

public:
    explicit frmSystem(QWidget* parent = nullptr);
    ~frmSystem() override;

protected:
    void load() override;
    bool queryUnload() override;

private:
    void fillLists();
    void limitFields();
    void showStored();
    void tellMissing();
    void showProperties(const SystemProperties& properties);
    SystemProperties entered() const;
    bool isEdited() const;

    // --- one setting ---
    void showSetting(int No, const QString& value);
    QString enteredSetting(int No) const;
    QWidget* control(const QString& name) const;

    void takeZip();
    void cancel();
    bool save();
    bool mayOverwrite();
    bool check(const SystemProperties& wanted);

    std::unique_ptr<Ui::frmSystem> ui;
    SystemProperties m_stored; // as read
    SystemProperties m_shown;  // the same as the controls give it back
};
