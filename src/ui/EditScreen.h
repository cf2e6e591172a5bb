#pragma once

#include "ui/Screen.h"

class QLabel;
class QPushButton;

// A screen that edits one thing: what its modes allow, whether something was changed, and the questions ahead of
// losing or deleting it. The caller sets `EditMode`; afterwards `Updated` tells that something was written or deleted.
class EditScreen : public Screen {
    Q_OBJECT

public:
    // A copy shows what is stored and is saved as a new one.
    enum Mode : qint16 { Add = 0, Edit = 1, Delete = 2, Copy = 5 };

    qint16 EditMode = Add;
    bool Updated = false;

protected:
    struct Words {
        QString title;     // of the window, ahead of the mode's word
        QString subject;   // what is edited, in the questions
        QString cancelled; // the same in the question of キャンセル
    };
    struct Controls {
        QList<QWidget*> changing; // fields and commands for all modes but that of deleting
        QList<QWidget*> storing;  // what works on something that is stored
        QPushButton *cancel, *remove, *close;
        QLabel* modeTitle; // none: the window's title tells alone
    };

    EditScreen(QWidget* parent, Words words) : Screen(parent), m_words(std::move(words)) {}
    void setUpEditing(Controls controls);

    // --- what a screen says of its own ---
    virtual void fillLists() {}
    virtual QWidget* firstField() const = 0;
    // Shows what is stored, or an empty one to be added. Raises an error when it is gone.
    virtual void showStored() = 0;
    // Writes what the fields hold. False when it was refused, which was told.
    virtual bool save() = 0;
    // Deletes what is stored. False when that is the caller's part, who then tells it.
    virtual bool removeStored() { return false; }

    void setMode(qint16 mode);
    // A change that no field tells of.
    void noteEdit() { m_edited = true; }
    bool isEdited() const;
    void clearEdited();
    // After a save that the screen stays open for: shows what is stored now, and tells it. The save stands when the
    // showing fails, which is told by itself.
    void showSaved(const std::function<void()>& show, const QString& message);

    void load() override;
    bool queryUnload() override;

private:
    void cancel();
    void remove();

    Words m_words;
    Controls m_controls{};
    bool m_edited = false;
};
