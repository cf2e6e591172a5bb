#pragma once

#include <QDialog>
#include <QHash>

class QLineEdit;
class QTextBrowser;

// The manual as it is shipped with the program: pages of HTML, and the places in them that belong to a screen or a part
// of one.
namespace ManualPages {

// Beside the program, or where it is installed; empty when it is nowhere.
QString folder();
// The page and heading for a control: that of the innermost part of its screen that has one, of the screen, or the
// page of contents.
QString placeOf(const QWidget* control, const QString& folder);

} // namespace ManualPages

// A window beside a screen, so that one can read and go on typing. It goes with its screen.
class frmManual : public QDialog {
    Q_OBJECT

public:
    // Opens it at the place of a control, or turns the one that is open. Raises an error when there is no manual.
    static void openAt(QWidget* control);

    // The page in view, with its heading.
    QString place() const;

private:
    explicit frmManual(const QString& folder, QWidget* screen);

    void addCommands();
    void turnTo(const QString& place);
    void findNext();

    QString m_folder;
    QTextBrowser* m_pages;
    QLineEdit* m_sought;
};
