#include "ui/ScrollingForm.h"

#include <QApplication>
#include <QLayout>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>
#include <QTabWidget>
#include <QVBoxLayout>

namespace {

bool holds(const QSize& room, const QWidget* form) {
    const QSize least = form->minimumSizeHint();
    return least.width() <= room.width() && least.height() <= room.height();
}

// Asks for little: what it holds has its own size.
class FormArea : public QScrollArea {
public:
    FormArea(QWidget* contents, QWidget* parent) : QScrollArea(parent) {
        setFrameShape(NoFrame);
        setFocusPolicy(Qt::NoFocus);
        setWidgetResizable(true);
        setWidget(contents);
        contents->setAutoFillBackground(false);
        viewport()->setAutoFillBackground(false);
        connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, const QWidget* now) {
            if (now && widget()->isAncestorOf(now)) ensureWidgetVisible(const_cast<QWidget*>(now));
        });
    }

    // The whole of the contents where there is room, with place for the bar across.
    QSize sizeHint() const override {
        const int bar = verticalScrollBar()->sizeHint().width();
        return widget()->sizeHint() + QSize(bar, bar);
    }
};

// All within the form's window from the start: a control that passed through another one would lose its place in the
// order of the Return key.
void scrollContents(QWidget* part) {
    auto* contents = new QWidget(part);
    contents->setLayout(part->layout()); // takes the controls along
    auto* frame = new QVBoxLayout(part);
    frame->setContentsMargins({});
    frame->addWidget(new FormArea(contents, part));
}

// The layouts around a part have kept the size that it asked for.
void askAnew(QWidget* part, const QWidget* form) {
    for (; part != form; part = part->parentWidget()) {
        part->updateGeometry();
        if (part->parentWidget()->layout()) part->parentWidget()->layout()->invalidate();
    }
}

} // namespace

QSize ScrollingForm::roomFor(const QWidget* form) {
    const int title = form->style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, form);
    return form->screen()->availableSize() - QSize(0, title);
}

void ScrollingForm::makeFit(QWidget* form, const QSize& room) {
    form->ensurePolished();
    if (!form->layout() || holds(room, form)) return;
    for (QTabWidget* pages : form->findChildren<QTabWidget*>()) {
        for (int page = 0; page < pages->count(); ++page)
            if (pages->widget(page)->layout()) scrollContents(pages->widget(page));
        askAnew(pages, form);
    }
    if (!holds(room, form)) scrollContents(form);
}
