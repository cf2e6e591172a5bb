#include "ui/EditScreen.h"

#include "base/AppError.h"
#include "base/basMessage.h"
#include "base/clsLogger.h"
#include "ui/FormPieces.h"
#include "ui/GridPlaces.h"

#include <QLabel>
#include <QPushButton>

void EditScreen::setUpEditing(Controls controls) {
    m_controls = std::move(controls);
    onClick(m_controls.cancel, [this] { cancel(); });
    onClick(m_controls.remove, [this] { remove(); });
    onClick(m_controls.close, [this] { close(); });
}

void EditScreen::load() {
    fillLists();
    AttachControls(this, wrappers);
    setMode(EditMode);
    showStored();
    clearEdited();
    firstField()->setFocus();
}

void EditScreen::setMode(qint16 mode) {
    static const QHash<qint16, QString> words{
        {Add, u"（追加）"_qs}, {Edit, u"（編集）"_qs}, {Delete, u"（削除）"_qs}, {Copy, u"（追加）"_qs}};
    EditMode = mode;
    setWindowTitle(m_words.title + words.value(mode));
    if (m_controls.modeTitle) m_controls.modeTitle->setText(words.value(mode));
    const QString looking = mode == Delete ? WhyNot::onlyToDelete : QString();
    const QString unstored = mode == Add || mode == Copy ? WhyNot::notStoredYet : looking;
    for (QWidget* part : m_controls.changing) FormPieces::allow(part, looking);
    for (QWidget* part : m_controls.storing) FormPieces::allow(part, unstored);
    FormPieces::allow(m_controls.cancel, looking);
    FormPieces::allow(m_controls.remove, mode == Delete ? QString() : WhyNot::deletedFromTheList);
}

bool EditScreen::isEdited() const { return m_edited || IsAnyEdited(wrappers); }

void EditScreen::clearEdited() {
    m_edited = false;
    ClearEdited(wrappers);
}

void EditScreen::showSaved(const std::function<void()>& show, const QString& message) {
    QString failure;
    try {
        const GridPlaces places(this);
        show();
    } catch (const AppError& error) {
        failure = error.description();
        writeLog(u"保存後の表示："_qs + failure);
    }
    clearEdited();
    ShowMessage(Message::Information, message);
    if (!failure.isEmpty())
        ShowMessage(Message::Warning,
                    u"保存は終わっていますが、保存した内容を画面に表示し直せませんでした。\n"_qs + failure);
}

void EditScreen::cancel() {
    if (ShowMessage(Message::AskCancel, m_words.cancelled) != AnswerYes) return;
    showStored();
    clearEdited();
}

void EditScreen::remove() {
    if (ShowMessage(Message::AskDelete, m_words.subject) != AnswerYes) return;
    if (removeStored()) ShowMessage(Message::Information, u"削除しました。"_qs);
    Updated = true;
    close();
}

bool EditScreen::queryUnload() {
    if (EditMode == Delete || !Loaded || !isEdited()) return true;
    switch (ShowMessage(Message::AskSave, m_words.subject)) {
    case AnswerYes:
        return save();
    case AnswerNo:
        return true;
    default:
        return false;
    }
}
