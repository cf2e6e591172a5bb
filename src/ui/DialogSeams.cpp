#include "ui/DialogSeams.h"

#include "base/Seams.h"
#include "ui/MountedDrives.h"
#include "ui/NormalCursor.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFileDialog>
#include <QPushButton>
#include <QUrl>

#include <array>

namespace {

struct ButtonForm {
    QString text;
    QMessageBox::ButtonRole role;
    qint16 answer;
};

const ButtonForm ok{u"OK"_qs, QMessageBox::AcceptRole, AnswerNone};
const ButtonForm yes{u"はい(&Y)"_qs, QMessageBox::YesRole, AnswerYes};
const ButtonForm no{u"いいえ(&N)"_qs, QMessageBox::NoRole, AnswerNo};
const ButtonForm retry{u"再試行(&R)"_qs, QMessageBox::AcceptRole, AnswerRetry};
const ButtonForm cancel{u"キャンセル(&C)"_qs, QMessageBox::RejectRole, AnswerCancel};

constexpr char answerProperty[] = "answer";

QList<ButtonForm> formsOf(MessageButtons buttons) {
    switch (buttons) {
    case MessageButtons::Ok:
        return {ok};
    case MessageButtons::YesNo:
        return {yes, no};
    case MessageButtons::YesNoCancel:
        return {yes, no, cancel};
    case MessageButtons::RetryCancel:
        return {retry, cancel};
    case MessageButtons::OkCancel:
        return {ok, cancel};
    }
    return {ok};
}

QMessageBox::Icon iconOf(MessageIcon icon) {
    switch (icon) {
    case MessageIcon::Warning:
        return QMessageBox::Warning;
    case MessageIcon::Question:
        return QMessageBox::Question;
    case MessageIcon::Information:
        return QMessageBox::Information;
    case MessageIcon::Critical:
        return QMessageBox::Critical;
    }
    return QMessageBox::NoIcon;
}

qint16 showMessageBox(const MessageBoxRequest& request) {
    const NormalCursor cursor;
    QMessageBox box(QApplication::activeWindow());
    prepareMessageBox(box, request);
    box.exec();
    return static_cast<qint16>(box.clickedButton()->property(answerProperty).toInt());
}

void showWaitCursor(bool on) {
    if (on && !QApplication::overrideCursor()) QApplication::setOverrideCursor(Qt::WaitCursor);
    while (!on && QApplication::overrideCursor()) QApplication::restoreOverrideCursor();
}

// "CSV (*.csv)" gives "csv"; a filter for all files gives none.
QString suffixOf(const QString& filter) {
    const QString pattern = filter.section(u"*."_qs, -1).remove(u')');
    return pattern == u"*" ? QString() : pattern;
}

QString askSaveFile(FileDialogRequest& request) {
    QFileDialog dialog(QApplication::activeWindow(), request.caption, request.folder);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilters(request.filters);
    dialog.selectNameFilter(request.filters.value(request.filter));
    dialog.setDefaultSuffix(suffixOf(request.filters.value(request.filter)));
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog,
                     [&dialog](const QString& filter) { dialog.setDefaultSuffix(suffixOf(filter)); });
    dialog.selectFile(request.fileName);
    if (dialog.exec() != QDialog::Accepted) return {};
    request.filter = static_cast<int>(request.filters.indexOf(dialog.selectedNameFilter()));
    return QDir::toNativeSeparators(dialog.selectedFiles().value(0));
}

QString askFolder(const FileDialogRequest& request) {
    QFileDialog dialog(QApplication::activeWindow(), request.caption, request.folder);
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    if (dialog.exec() != QDialog::Accepted) return {};
    return QDir::toNativeSeparators(dialog.selectedFiles().value(0));
}

QString askFile(const FileDialogRequest& request) {
    QFileDialog dialog(QApplication::activeWindow(), request.caption, request.folder);
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setNameFilters(request.filters);
    if (dialog.exec() != QDialog::Accepted) return {};
    return QDir::toNativeSeparators(dialog.selectedFiles().value(0));
}

} // namespace

void prepareMessageBox(QMessageBox& box, const MessageBoxRequest& request) {
    box.setWindowTitle(request.title);
    box.setTextFormat(Qt::PlainText);
    box.setText(request.text);
    box.setIcon(iconOf(request.icon));
    for (const ButtonForm& form : formsOf(request.buttons)) {
        QPushButton* button = box.addButton(form.text, form.role);
        button->setProperty(answerProperty, form.answer);
        if (!box.defaultButton() || (request.defaultIsNo && form.answer == AnswerNo)) box.setDefaultButton(button);
        box.setEscapeButton(button);
    }
}

void fillSeamsWithDialogs() {
    seams().message = showMessageBox;
    seams().waitCursor = showWaitCursor;
    seams().openWithShell = [](const QString& path) { QDesktopServices::openUrl(QUrl::fromLocalFile(path)); };
    seams().saveFile = askSaveFile;
    seams().openFolder = askFolder;
    seams().openFile = askFile;
    removableDrives() = mountedRemovableDrives;
}
