#include "ui/ProgressBox.h"

#include "base/Seams.h"
#include "ui/Style.h"

#include <QCloseEvent>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int steps = 1000;
constexpr int characters = 46;  // characters
constexpr int shownAfter = 300; // milliseconds

} // namespace

ProgressBox::ProgressBox(QWidget* parent, const QString& what, Stop stop)
    : QDialog(parent), m_part(new QLabel(this)), m_bar(new QProgressBar(this)),
      m_stop(new QPushButton(u"中止(&C)"_qs, this)) {
    setObjectName(u"frmProgress"_qs);
    setWindowTitle(what);
    setWindowModality(Qt::ApplicationModal);
    m_part->setObjectName(u"lblPart"_qs);
    m_bar->setObjectName(u"prgPart"_qs);
    m_bar->setRange(0, steps);
    m_stop->setObjectName(u"cmdStop"_qs);
    m_stop->setAutoDefault(false);
    m_stop->setVisible(stop == Stop::Offered);
    auto* lines = new QVBoxLayout(this);
    lines->addWidget(m_part);
    lines->addWidget(m_bar);
    lines->addWidget(m_stop, 0, Qt::AlignRight);
    setMinimumWidth(Style::charactersWide(characters));
    connect(m_stop, &QPushButton::clicked, this, &ProgressBox::stop);
    m_since.start();
}

bool ProgressBox::tell(const QString& part, qint64 done, qint64 all) {
    m_part->setText(part);
    m_bar->setValue(all > 0 ? static_cast<int>(done * steps / all) : 0);
    if (!isVisible() && m_since.elapsed() > shownAfter) show();
    if (isVisible()) seams().letEventsRun();
    return !m_stopped;
}

void ProgressBox::stop() {
    m_stopped = !m_stop->isHidden();
    m_stop->setEnabled(!m_stopped);
}

// Escape and the frame's close button ask for the same; the box goes with the work.
void ProgressBox::reject() { stop(); }

void ProgressBox::closeEvent(QCloseEvent* event) {
    stop();
    event->ignore();
}
