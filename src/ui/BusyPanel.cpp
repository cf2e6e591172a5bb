#include "ui/BusyPanel.h"

#include "base/Numbers.h"
#include "base/Seams.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>

namespace {

constexpr int unseenParts = 1;

} // namespace

BusyPanel::BusyPanel(QWidget* screen, const QString& word)
    : QFrame(screen), m_told(new QLabel(word)), m_word(word), m_focused(screen->focusWidget()) {
    setObjectName(u"fraBusy"_qs);
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
    m_told->setObjectName(u"lblBusy"_qs);
    auto* stops = new QPushButton(u"中止(&C)"_qs);
    stops->setObjectName(u"cmdStop"_qs);
    stops->setAutoDefault(false);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(24, 16, 24, 16);
    row->setSpacing(24);
    row->addWidget(m_told);
    row->addWidget(stops);
    connect(stops, &QPushButton::clicked, this, &BusyPanel::stop);
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &BusyPanel::stop);
    hide();
    lockScreen();
}

void BusyPanel::lockScreen() {
    for (QWidget* part : parentWidget()->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        if (part == this || part->isWindow() || !part->isEnabled()) continue;
        part->setEnabled(false);
        m_locked << part;
    }
}

BusyPanel::~BusyPanel() {
    for (const QPointer<QWidget>& part : m_locked)
        if (part) part->setEnabled(true);
    if (m_focused) m_focused->setFocus();
}

bool BusyPanel::goesOn() {
    if (++m_parts > unseenParts) tell();
    seams().letEventsRun();
    return !m_stopped;
}

void BusyPanel::tell() {
    m_told->setText(u"%1…　%2"_qs.arg(m_word, formatThousands(m_parts)));
    adjustSize();
    move(parentWidget()->rect().center() - rect().center());
    show();
    raise();
}
