#include "ui/Manual.h"

#include "base/AppError.h"
#include "ui/Style.h"

#include <QBoxLayout>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QTextBrowser>

namespace {

constexpr QSize usualSize(860, 640);
const QString contents = u"README.html"_qs;

QHash<QString, QString> placesIn(const QString& folder) {
    QHash<QString, QString> places;
    QFile file(QDir(folder).filePath(u"places"_qs));
    if (!file.open(QIODevice::ReadOnly)) return places;
    for (const QString& line : QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts))
        places.insert(line.section(u'\t', 0, 0), line.section(u'\t', 1));
    return places;
}

} // namespace

QString ManualPages::folder() {
    const QDir programs(QCoreApplication::applicationDirPath());
    for (const QString& place : {u"../share/halvane/manual"_qs, u"manual"_qs})
        if (const QString folder = QDir::cleanPath(programs.filePath(place)); QFile::exists(folder + u'/' + contents))
            return folder;
    return {};
}

QString ManualPages::placeOf(const QWidget* control, const QString& folder) {
    const QHash<QString, QString> places = placesIn(folder);
    const QString screen = control->window()->objectName();
    for (; control && !control->isWindow(); control = control->parentWidget())
        if (const QString place = places.value(screen + u' ' + control->objectName()); !place.isEmpty()) return place;
    return places.value(screen, contents);
}

void frmManual::openAt(QWidget* control) {
    const QString folder = ManualPages::folder();
    if (folder.isEmpty()) throw AppError(u"操作の手引きが見つかりません。"_qs, u"frmManual"_qs);
    QWidget* screen = control->window();
    auto* manual = screen->findChild<frmManual*>();
    if (!manual) manual = new frmManual(folder, screen);
    manual->turnTo(ManualPages::placeOf(control, folder));
    manual->show();
    manual->raise();
    manual->activateWindow();
}

frmManual::frmManual(const QString& folder, QWidget* screen)
    : QDialog(screen), m_folder(folder), m_pages(new QTextBrowser), m_sought(new QLineEdit) {
    setObjectName(u"frmManual"_qs);
    setWindowTitle(u"操作の手引き"_qs);
    setWindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowMinMaxButtonsHint |
                   Qt::WindowCloseButtonHint);
    m_pages->setObjectName(u"txtPage"_qs);
    m_pages->setOpenExternalLinks(false); // all of it is here
    m_pages->setAccessibleName(windowTitle());
    m_sought->setObjectName(u"txtFind"_qs);
    m_sought->setPlaceholderText(u"このページで探す"_qs);
    m_sought->setAccessibleName(m_sought->placeholderText());
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_pages);
    addCommands();
    Style::arrange(this);
    resize(usualSize.boundedTo(screen->screen()->availableSize()));
    m_pages->setFocus();
}

void frmManual::addCommands() {
    auto* row = new QHBoxLayout;
    const auto add = [&](const QString& name, const QString& caption, auto work) {
        auto* button = new QPushButton(caption);
        button->setObjectName(name);
        connect(button, &QPushButton::clicked, this, work);
        row->addWidget(button);
        return button;
    };
    add(u"cmdContents"_qs, u"目次(&M)"_qs, [this] { turnTo(contents); });
    add(u"cmdKeys"_qs, u"キー操作(&K)"_qs, [this] { turnTo(u"キー操作.html"_qs); });
    auto* back = add(u"cmdBack"_qs, u"戻る(&B)"_qs, [this] { m_pages->backward(); });
    auto* next = add(u"cmdForward"_qs, u"進む(&F)"_qs, [this] { m_pages->forward(); });
    for (auto* button : {back, next}) button->setEnabled(false);
    connect(m_pages, &QTextBrowser::backwardAvailable, back, &QWidget::setEnabled);
    connect(m_pages, &QTextBrowser::forwardAvailable, next, &QWidget::setEnabled);
    row->addWidget(m_sought, 1);
    add(u"cmdFind"_qs, u"次を検索(&N)"_qs, [this] { findNext(); });
    add(u"cmdClose"_qs, u"閉じる(&X)"_qs, [this] { close(); });
    connect(m_sought, &QLineEdit::returnPressed, this, [this] { findNext(); });
    static_cast<QVBoxLayout*>(layout())->addLayout(row);
}

QString frmManual::place() const {
    const QUrl source = m_pages->source();
    return source.hasFragment() ? source.fileName() + u'#' + source.fragment() : source.fileName();
}

void frmManual::turnTo(const QString& place) {
    QUrl url = QUrl::fromLocalFile(QDir(m_folder).filePath(place.section(u'#', 0, 0)));
    if (place.contains(u'#')) url.setFragment(place.section(u'#', 1));
    m_pages->setSource(url);
}

// From the top again where the page ends.
void frmManual::findNext() {
    if (m_sought->text().isEmpty() || m_pages->find(m_sought->text())) return;
    m_pages->moveCursor(QTextCursor::Start);
    m_pages->find(m_sought->text());
}
