#include "ui/FormPieces.h"

#include "ui/Grid.h"
#include "ui/Style.h"

#include <QComboBox>
#include <QHeaderView>

namespace {

constexpr int arrowWidth = 30;
constexpr int focusFrame = 2;
constexpr int leastCharacters = 8;

} // namespace

void FormPieces::applyCharacters(QWidget* form) {
    for (QWidget* control : form->findChildren<QWidget*>()) {
        const int characters = control->property("characters").toInt();
        if (characters < 1 && control->property("shownValue").toBool()) {
            // A long value must not widen the form.
            control->setSizePolicy(QSizePolicy::Ignored, control->sizePolicy().verticalPolicy());
            control->setMinimumWidth(Style::charactersWide(leastCharacters));
        }
        if (characters < 1) continue;
        const int arrow = qobject_cast<QComboBox*>(control) ? arrowWidth : 0;
        control->setFixedWidth(Style::charactersWide(characters) + arrow);
    }
}

void FormPieces::allow(QWidget* control, const QString& whyNot) {
    constexpr char ownHint[] = "ownHint";
    if (!control->property(ownHint).isValid()) control->setProperty(ownHint, control->toolTip());
    QStringList hint{control->property(ownHint).toString(), whyNot};
    hint.removeAll(QString());
    control->setEnabled(whyNot.isEmpty());
    control->setToolTip(hint.join(u'\n'));
}

void FormPieces::setArrayIndex(QWidget* block, int index) {
    const QString end = u"_%1"_qs.arg(index);
    const auto members = QList<QWidget*>{block} + block->findChildren<QWidget*>();
    for (QWidget* control : members) {
        const QString name = control->objectName();
        // Qt's own parts of a control keep their names.
        if (!name.isEmpty() && !name.startsWith(u"qt_")) control->setObjectName(name + end);
    }
}

void FormPieces::fixRowsShown(Grid* grid, int rows) {
    grid->ensurePolished();
    grid->setFixedHeight(grid->horizontalHeader()->sizeHint().height() +
                         rows * grid->verticalHeader()->defaultSectionSize() + 2 * focusFrame);
    grid->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void FormPieces::stretchColumn(Grid* grid, int column) {
    grid->horizontalHeader()->setStretchLastSection(false);
    grid->horizontalHeader()->setSectionResizeMode(column, QHeaderView::Stretch);
}
