#pragma once

#include "base/KeptDrafts.h"
#include "ui/Screen.h"

#include <QTimer>

#include <optional>

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
    // Work that was left behind, to go on with. It brings its own mode.
    std::optional<KeptDraft> Left;

    // Keeps what is under edit as a draft. Every minute does so by itself.
    void keepDraft();

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
    // A screen whose work is more than one would like to type again keeps it as a draft, which `showKept` shows again.
    virtual bool keepsDrafts() const { return false; }
    virtual KeptWork workToKeep() const { return {}; }
    virtual void showKept(const QJsonObject&) {}

    void setMode(qint16 mode);
    // A change that no field tells of.
    void noteEdit() { m_edited = true; }
    bool isEdited() const;
    void clearEdited();
    // After a save that the screen stays open for: shows what is stored now, and tells it. The save stands when the
    // showing fails, which is told by itself.
    void showSaved(const std::function<void()>& show, const QString& message);
    // Runs the writing itself. A draft of that time says that it may be stored; after a save that did not come to its
    // end it is written anew at once, with what is known of that save.
    template <class Write> auto saving(Write write) {
        const DraftMark mark(*this);
        return write();
    }

    void load() override;
    bool queryUnload() override;

private:
    struct DraftMark {
        explicit DraftMark(EditScreen& screen) : m_screen(screen) { m_screen.m_kept.beginSave(); }
        ~DraftMark() { m_screen.endSaving(); }
        Q_DISABLE_COPY_MOVE(DraftMark)

    private:
        EditScreen& m_screen;
    };

    void cancel();
    void remove();
    void takeUpLeft();
    void endSaving();

    Words m_words;
    Controls m_controls{};
    bool m_edited = false;
    DraftKeeping m_kept;
    QTimer m_minute;
};
